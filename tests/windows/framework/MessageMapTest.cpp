#include <gtest/gtest.h>

#include <string>

#include "framework/CWnd.h"
#include "framework/MessageMap.h"

namespace {

// Writes down which handler was called.
class Recorder : public CWnd {
public:
    LRESULT OnFirst(WPARAM wParam, LPARAM lParam) {
        calls += "first";
        return static_cast<LRESULT>(wParam) + lParam;
    }
    LRESULT OnSecond(WPARAM, LPARAM) {
        calls += "second";
        return 2;
    }
    void OnButton() { calls += "button"; }

    std::string calls;
};

using On = EventsOf<Recorder>;

TEST(MessageMapTest, HandsBothParametersToTheHandlerAndItsResultBack) {
    const MessageMap map(nullptr, {On::Message(WM_APP, &Recorder::OnFirst)});
    Recorder window;
    LRESULT result = 0;
    EXPECT_TRUE(map.Dispatch(window, {WM_APP, 40, 2}, result));
    EXPECT_EQ(result, 42);
    EXPECT_EQ(window.calls, "first");
}

TEST(MessageMapTest, LeavesAMessageThatNobodyNames) {
    const MessageMap map(nullptr, {On::Message(WM_APP, &Recorder::OnFirst)});
    Recorder window;
    LRESULT result = 7;
    EXPECT_FALSE(map.Dispatch(window, {WM_USER, 0, 0}, result));
    EXPECT_EQ(result, 7);
    EXPECT_EQ(window.calls, "");
}

TEST(MessageMapTest, AsksTheBaseForWhatItDoesNotName) {
    const MessageMap base(nullptr, {On::Message(WM_USER, &Recorder::OnSecond)});
    const MessageMap map(&base, {On::Message(WM_APP, &Recorder::OnFirst)});
    Recorder window;
    LRESULT result = 0;
    EXPECT_TRUE(map.Dispatch(window, {WM_USER, 0, 0}, result));
    EXPECT_EQ(result, 2);
}

TEST(MessageMapTest, PrefersItsOwnEntryToTheBase) {
    const MessageMap base(nullptr, {On::Message(WM_APP, &Recorder::OnSecond)});
    const MessageMap map(&base, {On::Message(WM_APP, &Recorder::OnFirst)});
    Recorder window;
    LRESULT result = 0;
    map.Dispatch(window, {WM_APP, 0, 0}, result);
    EXPECT_EQ(window.calls, "first");
}

TEST(MessageMapTest, TakesTheFirstOfTwoEntries) {
    const MessageMap map(nullptr,
                         {On::Message(WM_APP, &Recorder::OnSecond), On::Message(WM_APP, &Recorder::OnFirst)});
    Recorder window;
    LRESULT result = 0;
    map.Dispatch(window, {WM_APP, 0, 0}, result);
    EXPECT_EQ(window.calls, "second");
}

TEST(MessageMapTest, TakesAClickOnThatControlAndNoOtherNotification) {
    const MessageMap map(nullptr, {On::Click(1116, &Recorder::OnButton)});
    Recorder window;
    LRESULT result = 1;
    EXPECT_TRUE(map.Dispatch(window, {WM_COMMAND, MAKEWPARAM(1116, BN_CLICKED), 0}, result));
    EXPECT_EQ(result, 0);
    EXPECT_FALSE(map.Dispatch(window, {WM_COMMAND, MAKEWPARAM(1116, BN_SETFOCUS), 0}, result));
    EXPECT_FALSE(map.Dispatch(window, {WM_COMMAND, MAKEWPARAM(1117, BN_CLICKED), 0}, result));
    EXPECT_EQ(window.calls, "button");
}

}  // namespace
