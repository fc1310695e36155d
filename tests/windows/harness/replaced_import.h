// An answer of the system that a test gives in its place: what Windows refuses now and then, and
// Wine never does.
#pragma once

#include <windows.h>

#include <cstdlib>

namespace ravelin::test {

// Lets this program's calls of an imported function go to another one as long as it lives. The slot
// is the function's entry in the import table, which the linker names __imp_NAME.
//
// A table that cannot be written to ends the test program: nothing that follows would be proven.
class ReplacedImport {
  public:
    template <class Function>
    ReplacedImport(void*& slot, Function* replacement) : slot_(slot), original_(slot) {
        // The cast through void(*)() is the one that compilers accept for a function of any type.
        write(reinterpret_cast<void*>(reinterpret_cast<void (*)()>(replacement)));
    }
    ReplacedImport(const ReplacedImport&) = delete;
    ReplacedImport& operator=(const ReplacedImport&) = delete;
    ~ReplacedImport() { write(original_); }

  private:
    void write(void* function) {
        DWORD before = 0;
        if (VirtualProtect(&slot_, sizeof slot_, PAGE_READWRITE, &before) == 0) std::abort();
        InterlockedExchangePointer(&slot_, function);
        VirtualProtect(&slot_, sizeof slot_, before, &before);
    }

    void*& slot_;
    void* original_;
};

}  // namespace ravelin::test
