#include "listctrl/model/empty_text.h"

#include <gtest/gtest.h>

using namespace mc;

TEST(EmptyText, SaysWhyThereIsNothingToSee) {
    EXPECT_EQ(emptyListText(0, 0, "No pending changes"), "No pending changes");
    EXPECT_EQ(
        emptyListText(12, 0, "No pending changes"),
        "12 hidden by filters. Reset Filters, in the captions' menu (Ctrl+Menu key), shows them");
    EXPECT_EQ(emptyListText(12, 3, "No pending changes"), "");
}
