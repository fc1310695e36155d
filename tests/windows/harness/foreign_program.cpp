#include "tests/windows/harness/foreign_program.h"

#include <filesystem>

#include "tests/windows/harness/child_program.h"

namespace ravelin::test {

namespace fs = std::filesystem;

ForeignProgram::ForeignProgram()
    : path_((fs::temp_directory_path() / L"ravelin foreign program.exe").wstring()) {
    fs::copy_file(ownPath(), path_, fs::copy_options::overwrite_existing);
}

ForeignProgram::~ForeignProgram() {
    std::error_code ignored;
    fs::remove(path_, ignored);
}

}  // namespace ravelin::test
