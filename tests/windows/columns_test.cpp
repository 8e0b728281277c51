// The columns of a list as a checker makes them: the column profile dialog, and the dialogs that
// add and delete a column, with what they leave in the list and in the settings file.
#include "listctrl/model/list_commands.h"
#include "tests/windows/test_host.h"

using namespace mc;

namespace {

constexpr char kAllColumns[] = "0,0,75,1,1,75,2,2,75,3,3,75,4,4,75,5,5,75";

// Runs a command of a list, does `work` with its dialog, and cancels that if it is still open.
// Gives the texts of the message boxes.
Texts inDialog(unsigned command, const std::function<void(HWND)>& work) {
    bool worked = false;
    DialogTrap boxes([&](HWND dialog) {
        if (!worked) work((worked = true, dialog));
    });
    boxes.pressed = IDCANCEL;
    SendMessageA(mainList(), WM_COMMAND, command, 0);
    pump();
    EXPECT_TRUE(worked);
    if (worked) boxes.texts.erase(boxes.texts.begin());
    return boxes.texts;
}

void click(HWND dialog, int id) {
    SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, id)));
}

void set(HWND dialog, int id, const char* text) {
    SetWindowTextA(GetDlgItem(dialog, id), text);
}

std::string textOf(HWND dialog, int id) {
    return ::textOf(GetDlgItem(dialog, id));
}
void selectEntry(HWND dialog, int id, const char* text) {
    SendMessageA(GetDlgItem(dialog, id), LB_SELECTSTRING, static_cast<WPARAM>(-1),
                 reinterpret_cast<LPARAM>(text));
    SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(id, LBN_SELCHANGE), 0);
}

// The names in one of the lists of the profile dialog.
Texts names(HWND dialog, int id) {
    Texts texts;
    const HWND list = GetDlgItem(dialog, id);
    for (int row = 0; row < rowCount(list); ++row) texts.push_back(rowTexts(list, row, 1)[0]);
    return texts;
}

using Keys = std::initializer_list<const char*>;

// Three changes.
class Columns : public testing::Test {
protected:
    Columns() { start(); }
    void start() {
        open.reset();
        open = std::make_unique<OpenWorkbench>(Keys{"30", "4", "100"});
    }
    // Hides a column until the list is made again.
    static void hide(int row) {
        inDialog(kRepositionCommand, [row](HWND dialog) {
            selectRows(GetDlgItem(dialog, IDC_CP_SHOWN), {row});
            click(dialog, IDC_CP_REMOVE);
            click(dialog, IDC_CP_VIEW);
        });
    }
    void addColumn(const char* name, const char* expression) {
        EXPECT_EQ(inDialog(kAddColumnCommand,
                           [&](HWND dialog) {
                               set(dialog, IDC_UC_NAME, name);
                               set(dialog, IDC_UC_EXPRESSION, expression);
                               click(dialog, IDOK);
                           }),
                  Texts{});
    }

    StoredProfile stored;
    std::unique_ptr<OpenWorkbench> open;
};

TEST_F(Columns, AnAddedColumnIsComputedStoredAndBackAfterARestart) {
    const auto messages = inDialog(kAddColumnCommand, [](HWND dialog) {
        EXPECT_EQ(::textOf(dialog), "Maker checker List: Add Custom Columns");
        EXPECT_EQ(textOf(dialog, IDOK), "Add");
        click(dialog, IDC_UC_TIMES);
        set(dialog, IDC_UC_EXPRESSION, "2 * ");
        selectEntry(dialog, IDC_UC_COLUMNS, "Key");
        click(dialog, IDC_UC_END);
        click(dialog, IDOK);  // no name
        set(dialog, IDC_UC_NAME, "Twice");
        EXPECT_EQ(textOf(dialog, IDC_UC_EXPRESSION), "2 * \"Key\"");
        click(dialog, IDOK);
    });
    EXPECT_EQ(messages, (Texts{"Please select a Column Name", "Please Enter the column Name"}));
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(captions().back(), "Twice");
        EXPECT_EQ(column(6), (Texts{"60.00", "8.00", "200.00"}));
        EXPECT_EQ(SendMessageA(mainList(), LVM_GETCOLUMNWIDTH, 6, 0), 100);
        EXPECT_EQ(stored.text(), std::string(kAllColumns) + ",6,6,100,Twice# 2*\"2\"#2 * \"Key\"");
        start();
    }
}

TEST_F(Columns, DeletingMovesFilterAndOrderAlong) {
    addColumn("First", "\"Key\" + 1");
    addColumn("Second", "\"Key\" + 2");
    hand::click(filterEdit(7));  // of "Second"
    hand::type(">10");
    hand::key(VK_RETURN);
    hand::click(captionPoint(7));
    const auto messages = inDialog(kDeleteColumnCommand, [](HWND dialog) {
        EXPECT_EQ(::textOf(dialog), "Maker checker List: Delete Custom Columns");
        click(dialog, IDOK);
        selectEntry(dialog, IDC_UC_DEFINED, "First");
        EXPECT_EQ(textOf(dialog, IDC_UC_SHOWN_EXPRESSION), "\"Key\" + 1");
        click(dialog, IDOK);
    });
    EXPECT_EQ(messages, Texts{"No user defined column selected to delete"});
    EXPECT_EQ(captions().back(), "Second");
    EXPECT_EQ(column(6), (Texts{"32.00", "102.00"})) << "still filtered, still sorted";
    EXPECT_EQ(stored.text(), std::string(kAllColumns) + ",6,6,100,Second# \"2\"+2#\"Key\" + 2");
    open->plugin.publish(pending("20", "340"));
    EXPECT_EQ(column(6), (Texts{"22.00", "32.00", "102.00"}));

    inDialog(kDeleteColumnCommand, [](HWND dialog) {
        selectEntry(dialog, IDC_UC_DEFINED, "Second");
        click(dialog, IDOK);
    });
    EXPECT_EQ(rowCount(mainList()), 4) << "its filter went with it";
    EXPECT_EQ(stored.text(), kAllColumns);
}

TEST_F(Columns, TheProfileIsViewedSavedAndSetBack) {
    inDialog(kRepositionCommand, [this](HWND dialog) {
        EXPECT_EQ(textOf(dialog, IDC_CP_SORT_FOR), "Default Sort For: Entity Name");
        selectRows(GetDlgItem(dialog, IDC_CP_SHOWN), {1, 3, 4});
        click(dialog, IDC_CP_REMOVE);
        EXPECT_EQ(names(dialog, IDC_CP_AVAILABLE), (Texts{"Auth Type", "Maker", "Branch"}));
        selectRows(GetDlgItem(dialog, IDC_CP_AVAILABLE), {1});
        click(dialog, IDC_CP_ADD);
        click(dialog, IDC_CP_UP);
        EXPECT_EQ(names(dialog, IDC_CP_SHOWN), (Texts{"Entity Name", "Key", "Maker", "Broker"}));
        selectRows(GetDlgItem(dialog, IDC_CP_SHOWN), {1});
        SendMessageA(GetDlgItem(dialog, IDC_CP_SORT), CB_SETCURSEL, 2, 0);
        SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(IDC_CP_SORT, CBN_SELCHANGE), 0);
        click(dialog, IDC_CP_VIEW);
        EXPECT_EQ(stored.text(), "");
    });
    EXPECT_EQ(captions(), (Texts{"Entity Name", "Key", "Maker", "Broker"}));
    EXPECT_EQ(column(1), (Texts{"100", "30", "4"}));

    inDialog(kRepositionCommand, [](HWND dialog) {
        selectRows(GetDlgItem(dialog, IDC_CP_SHOWN), {1});
        EXPECT_EQ(SendMessageA(GetDlgItem(dialog, IDC_CP_SORT), CB_GETCURSEL, 0, 0), 2);
        click(dialog, IDOK);
    });
    EXPECT_EQ(stored.text(), "0,0,75,1,-1,0,2,1,75,3,2,75,4,-1,0,5,3,75");
    start();
    EXPECT_EQ(captions(), (Texts{"Entity Name", "Key", "Maker", "Broker"}));

    inDialog(kRepositionCommand, [](HWND dialog) {
        click(dialog, IDC_CP_DEFAULT);
        click(dialog, IDOK);
    });
    EXPECT_EQ(stored.text(), kAllColumns);
    EXPECT_EQ(column(2), (Texts{"30", "4", "100"}));
}

// Whatever shows at the moment, the stored positions stay.
TEST_F(Columns, AWidthIsKeptAtTheEndOfItsDrag) {
    const auto dragDivider = [](int item, int by) {
        const POINT from = captionPoint(item, mainList(), 1);
        hand::drag(from, {from.x + by, from.y});
        pump();
    };
    dragDivider(0, 20);
    EXPECT_EQ(stored.text(), "0,0,95,1,1,75,2,2,75,3,3,75,4,4,75,5,5,75");
    hide(5);
    ASSERT_EQ(captions().size(), 5u);
    dragDivider(1, -10);
    EXPECT_EQ(stored.text(), "0,0,95,1,1,65,2,2,75,3,3,75,4,4,75,5,5,75");
    start();
    EXPECT_EQ(captions().size(), 6u);
    EXPECT_EQ(columnWidth(1), 65);
    hand::doubleClick(captionPoint(0, mainList(), 1));
    pump();
    EXPECT_EQ(stored.text(),
              "0,0," + std::to_string(columnWidth(0)) + ",1,1,65,2,2,75,3,3,75,4,4,75,5,5,75");
}

TEST_F(Columns, SortingEndsWithItsColumn) {
    open->plugin.publish(pending("5", "340", {{54247, "ALAN"}}));
    hand::click(captionPoint(3));
    EXPECT_EQ(column(2), (Texts{"5", "30", "4", "100"}));
    hide(3);
    EXPECT_EQ(column(2), (Texts{"30", "4", "100", "5"}));
}

TEST_F(Columns, ASaveThatFailsIsToldAndTheDialogStays) {
    stored.hold(true);
    const auto messages = inDialog(kRepositionCommand, [this](HWND dialog) {
        click(dialog, IDC_CP_UP);
        click(dialog, IDOK);
        stored.hold(false);
        EXPECT_EQ(stored.text(), "");
        click(dialog, IDOK);
    });
    EXPECT_EQ(messages, Texts{"Error while saving column profile"});
    EXPECT_EQ(stored.text(), kAllColumns);
}

TEST_F(Columns, RowsAreDraggedAndMovedByKeys) {
    const Texts dragged{"Entity Name", "Key", "Maker", "Auth Type", "Branch", "Broker"};
    const auto shown = [] { return GetDlgItem(GetActiveWindow(), IDC_CP_SHOWN); };
    const auto dragFirst = [&](bool escape) {
        const POINT from = hand::cell(shown(), 1), to = hand::cell(shown(), 4);
        hand::drag(from, {to.x, to.y - 5}, escape);  // above the middle: before that row
    };
    const auto expect = [](const Texts& expected) {
        EXPECT_EQ(names(GetActiveWindow(), IDC_CP_SHOWN), expected);
    };
    const auto openDialog = [] {
        PostMessageA(mainList(), WM_COMMAND, kRepositionCommand, 0);
        hand::moveTo(hand::middle(mainList()));
    };
    hand::during(openDialog,
                 {[&] { dragFirst(false); }, [&] { expect(dragged), dragFirst(true); },
                  [&] {
                      expect(dragged);
                      hand::clickRow(shown(), 0);
                      hand::clickRow(shown(), 1, hand::kCtrl);
                      hand::key(VK_DOWN, hand::kAlt);
                  },
                  [&] {
                      expect({"Maker", "Entity Name", "Key", "Auth Type", "Branch", "Broker"});
                      hand::key(VK_ESCAPE);
                  }});
}

}  // namespace
