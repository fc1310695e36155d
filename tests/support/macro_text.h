// A macro as a line of text, so that a test can say what it expects of one.
#pragma once

#include <string>

#include "input/event_list.h"

namespace ravelin::test {

// "0:move 1,2, 15:raw 3,-4, 20:left down 5,6, 30:key 65 down, 40:wheel -120, 50:tool 1 on", with
// times in whole milliseconds.
std::string textOf(const EventList& macro);

}  // namespace ravelin::test
