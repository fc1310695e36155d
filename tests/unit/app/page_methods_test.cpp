#include "app/page_methods.h"

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

#include "persistence/app_settings.h"
#include "product.h"
#include "tests/support/engine_test.h"

namespace ravelin {
namespace {

using test::desktop;

class PageMethods : public test::EngineTest {
  protected:
    PageMethods() {
        services_.resizeWindow = [this](std::int32_t w, std::int32_t h) {
            resized_.push_back({w, h});
        };
        services_.openAddress = [this](const std::string& address) { opened_.push_back(address); };
        services_.collectEndedPanels = [this] { return std::exchange(ended_, {}); };
        services_.anyPanelEnded = [this] { return !ended_.empty(); };
        services_.writeStatusFile = [this](const std::string& status) {
            written_.push_back(status);
        };
        services_.detachPanel = [this](const std::string& args) {
            detached_.push_back(args);
            return refusal_;
        };
        services_.startUpdate = [this](const std::string& id) { updates_.push_back(id); };
        services_.environment = [] {
            return Environment{.scale = 1.25, .buttonsSwapped = true, .themeKey = "dawn"};
        };
        services_.pagePainted = [this] { ++painted_; };
        methods_ = mainPageMethods(services_);
    }

    const PageMethod& method(const std::string& name) const {
        const auto found = std::find_if(methods_.begin(), methods_.end(),
                                        [&](const PageMethod& m) { return m.name == name; });
        if (found == methods_.end()) throw std::logic_error("no method " + name);
        return *found;
    }
    PageReply reply(const std::string& name, const std::string& args = "[]") const {
        return callPageMethod(method(name), args);
    }
    std::string call(const std::string& name, const std::string& args = "[]") const {
        const auto settled = reply(name, args);
        EXPECT_FALSE(settled.rejected) << name << args << settled.json;
        return settled.json;
    }

    MainWindowServices services_;
    std::vector<PageMethod> methods_;
    std::vector<std::pair<std::int32_t, std::int32_t>> resized_;
    std::vector<std::string> opened_;
    std::vector<std::string> ended_;
    std::vector<std::string> written_;
    std::vector<std::string> updates_;
    std::vector<std::string> detached_;
    std::string refusal_;
    int painted_ = 0;
};

TEST_F(PageMethods, AreBoundInTheirOrder) {
    const std::vector<std::string> order = {
        "resizeWindow",        "updateSpammer", "startSpammer",   "stopSpammer",
        "updateKeySpam",       "startKeySpam",  "stopKeySpam",    "removeKeySpamTarget",
        "setKeySpamChordMode", "pickLocation",  "getAppSettings", "markWarningSeen",
        "setAppSetting",       "setPanelOrder", "resetHotkeys",   "openLink",
        "getTrackerStatus",    "clearProfile",  "addProfile",     "deleteProfile",
        "switchProfile",       "getProfiles",   "startUpdate",    "getSettings",
        "reassignKey",         "detachPanel",   "getActivity",    "getEnvironment",
        "pagePainted"};
    std::vector<std::string> names;
    for (const auto& m : methods_)
        names.push_back(m.name);
    EXPECT_EQ(names, order);
}

TEST_F(PageMethods, RequestsAreRaisedBeforeTheCommandEventIsSet) {
    const std::pair<const char*, Requests::Flag*> rows[] = {
        {"startSpammer", &requests.clickerStart},
        {"stopSpammer", &requests.clickerStop},
        {"startKeySpam", &requests.keySpamStart},
        {"stopKeySpam", &requests.keySpamStop}};
    for (const auto& [name, flag] : rows) {
        int seen = -1;
        desktop.onCommand = [&seen, request = flag] { seen = request->exchange(0); };
        EXPECT_EQ(call(name, "[\"whatever\"]"), "") << name;
        EXPECT_EQ(seen, 1) << name;
    }
}

TEST_F(PageMethods, TheEnvironmentCountsWhatWentWrong) {
    EXPECT_EQ(
        call("getEnvironment"),
        R"({"scale":1.25,"buttonsSwapped":true,"themeKey":"dawn","hooksMissing":false,"hooksPutBack":0,"refusedSends":0,"failures":0})");
    health.hooksMissing = true;
    health.hooksPutBack = 1;
    health.refusedSends = 2;
    health.failures = 3;
    EXPECT_EQ(
        call("getEnvironment"),
        R"({"scale":1.25,"buttonsSwapped":true,"themeKey":"dawn","hooksMissing":true,"hooksPutBack":1,"refusedSends":2,"failures":3})");
}

TEST_F(PageMethods, ThePageTellsThatItIsPainted) {
    EXPECT_EQ(call("pagePainted"), "");
    EXPECT_EQ(painted_, 1);
}

TEST_F(PageMethods, DetachingAPanelAnswersTheMessage) {
    EXPECT_EQ(call("detachPanel", "[\"a\"]"), "");
    EXPECT_EQ(detached_, std::vector<std::string>{"[\"a\"]"});
    refusal_ = "No \"such\" panel.";
    EXPECT_EQ(call("detachPanel"), "\"No \\\"such\\\" panel.\"");
}

TEST_F(PageMethods, PickingALocationSetsNoEvent) {
    EXPECT_EQ(call("pickLocation"), "");
    EXPECT_TRUE(capture.pickingLocation.load());
    EXPECT_FALSE(desktop.isSignalled(platform::Event::command));
}

TEST_F(PageMethods, SettingsArriveAsOneTextOrAsSeparateValues) {
    call("updateSpammer", "[\"1,2,3,4,1,1,0,7,1\"]");
    EXPECT_EQ(toolSettings.sh.load(), 1);
    EXPECT_EQ(toolSettings.locMode.load(), 1);
    call("updateSpammer", "[9,8,7,6,2,0,1,5,0]");
    EXPECT_EQ(toolSettings.sh.load(), 9);
    EXPECT_EQ(toolSettings.rptTimes.load(), 5);
    call("updateKeySpam", "[\"0,0,2,50,0,3\"]");
    EXPECT_EQ(toolSettings.kss.load(), 2);
    EXPECT_EQ(toolSettings.ksRptTimes.load(), 3);
}

TEST_F(PageMethods, AConversionErrorRejectsThePromiseAndKeepsTheFieldsBefore) {
    const auto invalid = reply("updateSpammer", "[\"1,2,x,4,0,0,1,10,0\"]");
    EXPECT_TRUE(invalid.rejected);
    EXPECT_EQ(invalid.json, "\"invalid stoi argument\"");
    EXPECT_EQ(toolSettings.sh.load(), 1);
    EXPECT_EQ(toolSettings.sm.load(), 2);
    EXPECT_EQ(toolSettings.ss.load(), 0);
    EXPECT_EQ(toolSettings.sms.load(), 5);

    const auto range = reply("updateKeySpam", "[\"4,99999999999,0,0,0,0\"]");
    EXPECT_TRUE(range.rejected);
    EXPECT_EQ(range.json, "\"stoi argument out of range\"");
    EXPECT_EQ(toolSettings.ksh.load(), 4);
}

TEST_F(PageMethods, TooFewSettingsChangeNothing) {
    EXPECT_EQ(call("updateSpammer", "[\"1,2,3,4,5,6,7,8\"]"), "");
    EXPECT_EQ(toolSettings.sh.load(), 0);
    EXPECT_EQ(call("updateSpammer", "[]"), "");
}

TEST_F(PageMethods, EscapingErrorsOfEveryKindAreFenced) {
    const PageMethod standard{
        "m",
        [](const std::string&) -> std::string { throw std::runtime_error("say \"why\""); },
        {}};
    EXPECT_EQ(callPageMethod(standard, "[]").json, "\"say \\\"why\\\"\"");
    const PageMethod other{"m", [](const std::string&) -> std::string { throw 7; }, {}};
    EXPECT_TRUE(callPageMethod(other, "[]").rejected);
}

TEST_F(PageMethods, ResizeNeedsTwoNumbers) {
    EXPECT_EQ(call("resizeWindow", "[420]"), "");
    EXPECT_EQ(call("resizeWindow", "[\"wide\",560]"), "");
    EXPECT_TRUE(resized_.empty());
    EXPECT_EQ(call("resizeWindow", "[420,560]"), "");
    EXPECT_EQ(resized_, (std::vector<std::pair<std::int32_t, std::int32_t>>{{420, 560}}));
}

TEST_F(PageMethods, LinksAreOpenedByKeyOnly) {
    for (const char* args :
         {"[\"https://elsewhere.example\"]", "[\"Docs\"]", "[]", "[\"docs,discord\"]"})
        EXPECT_EQ(call("openLink", args), "");
    EXPECT_TRUE(opened_.empty());
    call("openLink", "[\"docs\"]");
    call("openLink", "[\"discord\"]");
    EXPECT_EQ(opened_, (std::vector<std::string>{product::docsUrl, product::chatUrl}));
}

TEST_F(PageMethods, ChordModeIsOnForTheCharacterOneOnly) {
    for (const char* args : {"[\"1\"]", "[1]"}) {
        call("setKeySpamChordMode", args);
        EXPECT_TRUE(keySpamTargets.chord.load()) << args;
        for (const char* other : {"[\"11\"]", "[true]", "[\"\"]", "[]", "[\" 1\"]"}) {
            keySpamTargets.chord = true;
            call("setKeySpamChordMode", other);
            EXPECT_FALSE(keySpamTargets.chord.load()) << other;
        }
    }
}

TEST_F(PageMethods, RemovingATargetTakesAnIndexAndIgnoresWords) {
    call("removeKeySpamTarget", "[\"first\"]");
    EXPECT_EQ(keySpamTargets.count.load(), 1);
    call("removeKeySpamTarget", "[0]");
    EXPECT_EQ(keySpamTargets.count.load(), 0);
}

TEST_F(PageMethods, TheStatusIsReturnedAndWrittenAlike) {
    ended_ = {"panel-ui"};
    const std::string status = call("getTrackerStatus");
    EXPECT_NE(status.find("\"restore\":[\"panel-ui\"]"), std::string::npos);
    EXPECT_EQ(written_, std::vector<std::string>{status});
    EXPECT_NE(call("getTrackerStatus").find("\"restore\":[]"), std::string::npos);
}

TEST_F(PageMethods, ReassigningArmsTheNamedSlotAndNothingElse) {
    call("reassignKey", "[\"keyspamhotkey\"]");
    EXPECT_EQ(capture.slot.load(), CaptureSlot::keySpamHotkey);
    call("reassignKey", "[\"nonsense\"]");
    EXPECT_EQ(capture.slot.load(), CaptureSlot::keySpamHotkey);
    call("reassignKey", "[\"unlock\"]");
    EXPECT_EQ(capture.slot.load(), CaptureSlot::unlock);
}

TEST_F(PageMethods, HotkeysGoBackToTheirDefaults) {
    for (auto* code :
         {&hotkeys.rec, &hotkeys.play, &hotkeys.autoClicker, &hotkeys.keySpam, &hotkeys.unlock})
        code->exchange(65);
    call("resetHotkeys");
    EXPECT_EQ(hotkeys.rec.load(), 119U);
    EXPECT_EQ(hotkeys.play.load(), 118U);
    EXPECT_EQ(hotkeys.autoClicker.load(), 117U);
    EXPECT_EQ(hotkeys.keySpam.load(), 120U);
    EXPECT_EQ(hotkeys.unlock.load(), 121U);
}

TEST_F(PageMethods, ClearingDuringARecordingLeavesTheMacro) {
    macro().append({});
    engine.recording = true;
    toolSettings.sms = 77;
    call("clearProfile");
    EXPECT_EQ(macro().size(), 1U);
    EXPECT_EQ(toolSettings.sms.load(), 77);
    engine.recording = false;
    call("clearProfile");
    EXPECT_TRUE(macro().empty());
    EXPECT_EQ(toolSettings.sms.load(), 5);
    EXPECT_EQ(profiles.front().settingsLine, captureToolSettings());
}

TEST_F(PageMethods, AnUpdateIsStartedWithTheIdOfItsCall) {
    ASSERT_TRUE(method("startUpdate").begin);
    method("startUpdate").begin("17");
    EXPECT_EQ(updates_, std::vector<std::string>{"17"});
}

TEST_F(PageMethods, SettingsAreReadAsJson) {
    EXPECT_EQ(
        call("getSettings"),
        R"({"sh":0,"sm":0,"ss":0,"sms":5,"sbtn":0,"stype":0,"rptMode":1,"rptTimes":10,)"
        R"("locMode":0,"fixedX":0,"fixedY":0,"tmv":true,"tclk":true,"tscr":true,"tkey":true,)"
        R"("trel":false,"tspd":1,"tloop":false,"tloopMs":500,"ksh":0,"ksm":0,"kss":0,"ksms":5,)"
        R"("ksRptMode":1,"ksRptTimes":10,"holdAuto":false,"holdKeySpam":false})");
    appSettings = {};
    EXPECT_EQ(call("getAppSettings"),
              R"({"alwaysOnTop":false,"launchOnStartup":false,"startMinimized":false,)"
              R"("hotkeysEnabled":true,"hotkeyLock":true,"disableAnimations":false,)"
              R"("showWarnings":true,"seenWarnings":[],"minimizedPanels":[],"panelOrder":[]})");
    EXPECT_EQ(call("getProfiles"), R"({"current":0,"names":["Default Tracking Profile"],"cap":3,)"
                                   R"("defaultName":"Default Tracking Profile"})");
}

}  // namespace
}  // namespace ravelin
