// A copy of this program under another name: the same windows, but another executable.
#pragma once

#include <string>

namespace ravelin::test {

class ForeignProgram {
  public:
    ForeignProgram();
    ForeignProgram(const ForeignProgram&) = delete;
    ForeignProgram& operator=(const ForeignProgram&) = delete;
    ~ForeignProgram();

    const std::wstring& path() const { return path_; }

  private:
    std::wstring path_;
};

}  // namespace ravelin::test
