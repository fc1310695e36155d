// The whole engine as a new process finds it, for one test after another in the same process.
#pragma once

namespace ravelin::test {

// All defaults restored, on a new desktop whose clock starts at 0.
void resetEngine();

}  // namespace ravelin::test
