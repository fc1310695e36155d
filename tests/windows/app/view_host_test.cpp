#include "app/view_host_win32.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/browser_interfaces_win32.h"
#include "tests/windows/harness/test_window.h"

namespace ravelin {
namespace {

using Calls = std::vector<std::string>;

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

// Answers only what is asked of the engine here.
class NotedController final : public BrowserController {
  public:
    Calls calls;

    HRESULT STDMETHODCALLTYPE putIsVisible(BOOL visible) override {
        calls.emplace_back(visible != FALSE ? "visible" : "hidden");
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE moveFocus(int reason) override {
        calls.push_back("focus " + std::to_string(reason));
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE notifyParentWindowPositionChanged() override {
        calls.emplace_back("moved");
        return S_OK;
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE getIsVisible() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE getBounds() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE putBounds() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE getZoomFactor() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE putZoomFactor() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE addZoomFactorChanged() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE removeZoomFactorChanged() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE setBoundsAndZoomFactor() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE addMoveFocusRequested() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE removeMoveFocusRequested() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE addGotFocus() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE removeGotFocus() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE addLostFocus() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE removeLostFocus() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE addAcceleratorKeyPressed() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE removeAcceleratorKeyPressed() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE getParentWindow() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE putParentWindow() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE close() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE getBrowserView(BrowserView**) override { return E_NOTIMPL; }
};

#pragma GCC diagnostic pop

class ViewOfWindow : public ::testing::Test {
  protected:
    void minimise() { host.follow({WM_SIZE, SIZE_MINIMIZED, 0}); }
    void restore() { host.follow({WM_SIZE, SIZE_RESTORED, MAKELPARAM(400, 300)}); }

    NotedController controller;
    bool panelIsOut = false;
    ViewHost host{&controller, [this] { return panelIsOut; }};
};

TEST_F(ViewOfWindow, GetsTheKeyboardFocusWithTheWindow) {
    host.follow({WM_SETFOCUS, 0, 0});
    EXPECT_EQ(controller.calls, Calls{"focus 0"});
}

TEST_F(ViewOfWindow, GetsTheFocusThatItsWindowHasAlready) {
    test::TestWindow window(L"Focused");
    window.call([&] { host.takeFocusFrom(window.handle()); });
    EXPECT_EQ(controller.calls, Calls{"focus 0"});
    // This thread has no focus to give away.
    host.takeFocusFrom(window.handle());
    host.takeFocusFrom(nullptr);
    EXPECT_EQ(controller.calls, Calls{"focus 0"});
}

TEST_F(ViewOfWindow, IsToldOfEveryMoveAndOfThoseUnderWay) {
    host.follow({WM_MOVE, 0, 0});
    host.follow({WM_MOVING, 0, 0});
    EXPECT_EQ(controller.calls, (Calls{"moved", "moved"}));
}

TEST_F(ViewOfWindow, IsHiddenWhileTheWindowIsMinimised) {
    minimise();
    minimise();
    EXPECT_EQ(controller.calls, Calls{"hidden"});
    restore();
    restore();
    EXPECT_EQ(controller.calls, (Calls{"hidden", "visible"}));
}

TEST_F(ViewOfWindow, StaysVisibleWhileAPanelIsOut) {
    panelIsOut = true;
    minimise();
    EXPECT_TRUE(controller.calls.empty());
    panelIsOut = false;
    host.updateVisibility();
    EXPECT_EQ(controller.calls, Calls{"hidden"});
}

TEST_F(ViewOfWindow, IsLeftAloneByOtherMessages) {
    for (const UINT id :
         std::vector<UINT>{WM_KILLFOCUS, WM_PAINT, WM_ACTIVATE, WM_EXITSIZEMOVE, WM_SHOWWINDOW})
        host.follow({id, 1, 0});
    restore();
    EXPECT_TRUE(controller.calls.empty());
}

TEST(MissingView, IsPassedOver) {
    ViewHost host(nullptr);
    for (const UINT id : std::vector<UINT>{WM_SETFOCUS, WM_MOVE, WM_SIZE})
        host.follow({id, SIZE_MINIMIZED, 0});
    host.updateVisibility();
}

}  // namespace
}  // namespace ravelin
