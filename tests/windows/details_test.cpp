// The details list as a checker uses it: what an answer shows, folding, filtering, editing a limit
// and sending it.
#include <gtest/gtest.h>

#include "framework/handles.h"
#include "listctrl/model/list_commands.h"
#include "tests/windows/test_host.h"

namespace {

using Texts = std::vector<std::string>;

HWND details() {
    return descendant(findPane(), WC_LISTVIEWA, 4001);
}

// The lines, as Field|Value|Old Value.
Texts lines() {
    Texts all;
    for (int row = 0; row < rowCount(details()); ++row) {
        const Texts cells = rowTexts(details(), row, 3);
        all.push_back(cells[0] + "|" + cells[1] + "|" + cells[2]);
    }
    return all;
}

Fields limitsAnswer(const std::string& key) {
    return {{32767, "om_get_auth_limits_details"},
            {51803, key},
            {54001, "C1"},
            {64031, "1500"},
            {64031, "1200"},
            {64210, "10"},
            {64037, "yes"}};
}

// A limits change is pending and its details are on show.
class Details : public testing::Test {
protected:
    void showLimits() {
        open = std::make_unique<OpenWorkbench>();
        open->plugin.publish(pending("7", "360", {{54001, "C1"}}));
        doubleClick(mainList(), 0);
        answer(limitsAnswer("7"));
        host().sent.clear();
    }

    // Keys as the keyboard sends them: through the queue, to whatever has the focus.
    static void key(WPARAM virtualKey) {
        PostMessageA(GetFocus(), WM_KEYDOWN, virtualKey, 1);
        PostMessageA(GetFocus(), WM_KEYUP, virtualKey, static_cast<LPARAM>(0xC0000001));
        pump();
    }
    static void type(const char* text) {
        for (const char* c = text; *c != '\0'; ++c)
            PostMessageA(GetFocus(), WM_CHAR, static_cast<WPARAM>(*c), 1);
        pump();
    }
    static void editRow(int row) {
        SetFocus(details());
        selectRows(details(), {row});
        LVITEMA focus{};
        focus.state = focus.stateMask = LVIS_FOCUSED;
        SendMessageA(details(), LVM_SETITEMSTATE, static_cast<WPARAM>(row),
                     reinterpret_cast<LPARAM>(&focus));
        key(VK_F2);
    }
    static bool editing() { return GetFocus() != details() && IsChild(details(), GetFocus()); }

    std::unique_ptr<OpenWorkbench> open;
};

TEST_F(Details, AnswerShowsGroupsAndALateOneNothing) {
    showLimits();
    const Texts shown{"RMS Limits||", "RMS Limit For|Client - C1|", "Cash Margin|1500.00|1200",
                      "Sell Sec Limit|10|", "GroupWise Validation|E|"};
    EXPECT_EQ(lines(), shown);
    answer(limitsAnswer("6"));
    EXPECT_EQ(lines(), shown);
    answer(limitsAnswer("7"));
    EXPECT_EQ(lines(), shown) << "a second answer takes the place of the first";
    open->plugin.publish(outcome("7", "accepted"));
    EXPECT_EQ(lines(), Texts{});
}

// The widest texts are the heading and the row's name behind its indent, and a value in bold.
TEST_F(Details, FittingMeasuresWhatIsDrawn) {
    showLimits();
    SendMessageA(details(), WM_COMMAND, kFitToDataCommand, 0);
    LOGFONTA plain{};
    GetObjectA(reinterpret_cast<HFONT>(SendMessageA(details(), WM_GETFONT, 0, 0)), sizeof plain,
               &plain);
    const auto width = [&](const std::string& text, LONG weight) {
        LOGFONTA wanted = plain;
        wanted.lfWeight = weight;
        const fw::Font font(CreateFontIndirectA(&wanted));
        const HDC dc = GetDC(details());
        const fw::SelectScope select(dc, font.get());
        SIZE size{};
        GetTextExtentPoint32A(dc, text.data(), static_cast<int>(text.size()), &size);
        ReleaseDC(details(), dc);
        return static_cast<LRESULT>(size.cx);
    };
    constexpr int kMargins = 2 * 6, kIndent = 16;
    const auto fitted = [](WPARAM column) {
        return SendMessageA(details(), LVM_GETCOLUMNWIDTH, column, 0);
    };
    EXPECT_EQ(fitted(0), kIndent + width("GroupWise Validation", plain.lfWeight) + kMargins);
    answer({{32767, "om_get_auth_limits_details"},
            {51803, "7"},
            {54001, "C1"},
            {64031, "123456789012"},
            {64031, "1"}});
    SendMessageA(details(), WM_COMMAND, kFitToDataCommand, 0);
    EXPECT_EQ(rowTexts(details(), 2, 2)[1], "123456790528.00");
    EXPECT_EQ(fitted(1), width("123456790528.00", FW_BOLD) + kMargins);
}

TEST_F(Details, HeadingsFoldByClickAndKeys) {
    showLimits();
    RECT heading{LVIR_BOUNDS, 0, 0, 0};
    SendMessageA(details(), LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&heading));
    const LPARAM at = MAKELPARAM(heading.left + 30, heading.top + 4);
    SendMessageA(details(), WM_LBUTTONDOWN, MK_LBUTTON, at);
    SendMessageA(details(), WM_LBUTTONUP, 0, at);
    EXPECT_EQ(rowCount(details()), 1);
    SetFocus(details());
    key(VK_RIGHT);
    EXPECT_EQ(rowCount(details()), 5);
    key(VK_DOWN);
    key(VK_DOWN);
    key(VK_LEFT);  // to the heading
    key(VK_LEFT);
    EXPECT_EQ(lines(), Texts{"RMS Limits||"});
}

TEST_F(Details, AnEditedLimitIsShownSentAndForgotten) {
    showLimits();
    editRow(2);
    ASSERT_TRUE(editing());
    type("2500.129");  // the old text is selected, so this takes its place
    key(VK_RETURN);
    EXPECT_FALSE(editing());
    EXPECT_EQ(GetFocus(), details());
    EXPECT_EQ(lines()[2], "Cash Margin|2500.13|1200");
    EXPECT_TRUE(host().sent.empty()) << "Enter in an editor is no decision";
    press("Update");
    ASSERT_EQ(host().sent.size(), 1u);
    EXPECT_EQ(sentField(host().sent[0], 64031), "2500.13");
    EXPECT_EQ(sentField(host().sent[0], 51803), "7");
    press("Update");
    EXPECT_EQ(host().sent.size(), 1u) << "what has left is not sent again";
}

TEST_F(Details, EscCancelsTabGoesOnAndUntouchedTextsAreNoEdits) {
    showLimits();
    editRow(2);
    type("9");
    key(VK_ESCAPE);
    EXPECT_EQ(lines()[2], "Cash Margin|1500.00|1200");
    editRow(1);
    EXPECT_FALSE(editing()) << "a read-only row";
    editRow(2);
    key(VK_TAB);  // untouched
    ASSERT_TRUE(editing());
    type("25");
    key(VK_TAB);
    ASSERT_TRUE(editing()) << "the choice cell";
    key(VK_RETURN);
    press("Update");
    ASSERT_EQ(host().sent.size(), 1u);
    EXPECT_EQ(sentField(host().sent[0], 64031), "<absent>");
    EXPECT_EQ(sentField(host().sent[0], 64210), "25");
    EXPECT_EQ(sentField(host().sent[0], 64037), "<absent>");
}

TEST_F(Details, UpdateByKeyTakesWhatIsBeingTyped) {
    showLimits();
    editRow(2);
    type("31");
    SendMessageA(findPane(), WM_COMMAND, 1000, 0);
    ASSERT_EQ(host().sent.size(), 1u);
    EXPECT_EQ(sentField(host().sent[0], 64031), "31.00");
}

TEST_F(Details, ChoiceGoesOutAsTheServersWord) {
    showLimits();
    editRow(4);
    type("D");
    key(VK_RETURN);
    EXPECT_EQ(lines()[4], "GroupWise Validation|D|");
    press("Update");
    ASSERT_EQ(host().sent.size(), 1u);
    EXPECT_EQ(sentField(host().sent[0], 64037), "no");
}

TEST_F(Details, ATextThatIsNoNumberIsRefusedAndTheOldValueKept) {
    showLimits();
    editRow(2);
    type("12a");
    {
        const DialogTrap boxes;
        key(VK_RETURN);
        EXPECT_EQ(boxes.texts.size(), 1u);
    }
    EXPECT_TRUE(editing());
    {
        const DialogTrap boxes;
        SetFocus(mainList());
        pump();
        EXPECT_EQ(boxes.texts.size(), 1u);
    }
    EXPECT_EQ(lines()[2], "Cash Margin|1500.00|1200");
    press("Update");
    EXPECT_TRUE(host().sent.empty());
}

TEST_F(Details, AnOutcomeInTheMiddleOfAnEditDropsIt) {
    showLimits();
    editRow(2);
    type("77");
    open->plugin.publish(outcome("7", "accepted"));
    pump();
    EXPECT_EQ(rowCount(details()), 0);
    EXPECT_FALSE(editing());
    press("Update");
    EXPECT_TRUE(host().sent.empty());
}

TEST_F(Details, WithoutTheRightNothingOpens) {
    host().mayModify = false;
    showLimits();
    for (const int row : {2, 4}) {
        editRow(row);
        EXPECT_FALSE(editing());
    }
    host().mayModify = true;
}

TEST_F(Details, FilterKeepsTheHeadingOfAnyLineThatPasses) {
    showLimits();
    const auto header = reinterpret_cast<HWND>(SendMessageA(details(), LVM_GETHEADER, 0, 0));
    const HWND box = FindWindowExA(GetDlgItem(header, 5000), nullptr, "Edit", nullptr);
    SetFocus(box);
    type("cash");
    key(VK_RETURN);
    EXPECT_EQ(lines(), (Texts{"RMS Limits||", "Cash Margin|1500.00|1200"}));
}

}  // namespace
