// A data folder of its own and the program's state as at start, for one test.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/support/environment.h"
#include "tests/support/live_state.h"
#include "tests/support/temp_folder.h"

namespace ravelin::test {

class DataFolderFixture : public ::testing::Test {
  protected:
    DataFolderFixture() {
        setEnvironment("LOCALAPPDATA", localAppData.path());
        resetLiveState();
    }
    ~DataFolderFixture() override {
        unsetEnvironment("LOCALAPPDATA");
        resetLiveState();
    }

    std::string dataFilePath(const std::string& name) const {
        return localAppData.file("Ravelin/" + name);
    }
    std::string settingsFile() const { return dataFilePath("appsettings.txt"); }
    bool fileWritten() const { return std::filesystem::exists(settingsFile()); }
    void removeFile() const { std::filesystem::remove(settingsFile()); }

    TempFolder localAppData;
};

}  // namespace ravelin::test
