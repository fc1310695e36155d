// The text language of the input tests.
#include "tests/support/input_script.h"

#include <gmock/gmock.h>

#include "input/capture.h"
#include "tests/support/engine_test.h"
#include "tests/support/macro_text.h"

namespace ravelin::test {
namespace {

class InputScript : public EngineTest {};

TEST_F(InputScript, NamesKeysAndButtonsByTheirCodes) {
    const std::pair<const char*, std::uint32_t> rows[] = {
        {"left", 1}, {"right", 2},  {"middle", 4}, {"side1", 5},  {"side2", 6},
        {"Esc", 27}, {"Space", 32}, {"D0", 48},    {"D9", 57},    {"A", 65},
        {"Z", 90},   {"F1", 112},   {"F24", 135},  {"Ctrl", 162}, {"RCtrl", 163}};
    for (const auto& [name, code] : rows)
        EXPECT_EQ(codeOf(name), code) << name;
    for (const char* name : {"", "a", "Up", "Dx", "D10", "Fx"})
        EXPECT_ANY_THROW(codeOf(name)) << name;
}

TEST_F(InputScript, TellsWhatBecameOfEveryWordAndWhatItRaised) {
    EXPECT_EQ(feed("A↓ A↑ F8↓ F8↑ ~F8↓ middle↓"),
              "A↓=seen A↑=seen F8↓=hidden:recToggle F8↑=hidden ~F8↓=seen middle↓=seen");
    EXPECT_EQ(feed("F10↓"), "F10↓=hidden:stopPlayback+clickerStop+keySpamStop");
    EXPECT_EQ(feed(""), "");
}

TEST_F(InputScript, SetsTheClockToItsMoments) {
    feed("250 A↓ 1000");
    EXPECT_EQ(desktop.now(), 1.0);
}

TEST_F(InputScript, CarriesPlacesTurnsAndMotion) {
    passOnEverySignal();
    feed("0 F8↓ F8↑ 10 move@-3,4 20 wheel@-120 30 left↓@5,-6 40 left↑@7,8 50 side2↓@1,2");
    toolSettings.trel = true;
    feed("60 raw@-9,10 70 ~wheel@5 ~left↓@1,1 ~move@1,1 80 F8↓");
    EXPECT_EQ(textOf(macro()),
              "0:move -3,4, 10:wheel -120, 20:left down 5,-6, 30:left up 7,8, 40:side down 1,2, "
              "50:raw -9,10");
}

TEST_F(InputScript, CarriesOutWhatIsNoInput) {
    EXPECT_EQ(feed("F6↓ leave F6↓ pass"), "F6↓=hidden:clickerToggle F6↓=hidden:clickerToggle");
    capture.slot = CaptureSlot::rec;
    feed("F2↓");
    EXPECT_EQ(hotkeys.rec.load(), 119U);
    feed("pass");
    EXPECT_EQ(hotkeys.rec.load(), 113U);
}

TEST_F(InputScript, RefusesWordsThatItDoesNotKnow) {
    for (const char* script : {"Nothing↓", "move@x,1", "wheel@", "A"})
        EXPECT_ANY_THROW(feed(script)) << script;
}

}  // namespace
}  // namespace ravelin::test
