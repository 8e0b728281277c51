#include "text/text_difference.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "text/unseen.h"

using namespace mc;

namespace {

// The runs between brackets.
std::string marked(std::string text, const std::vector<TextRun>& runs) {
    for (auto run = runs.rbegin(); run != runs.rend(); ++run)
        text.insert(run->to, "]").insert(run->from, "[");
    return text;
}

TEST(TextDifference, MarksTheShortestEditAndWholeWordsWhereMostDiffers) {
    using enum DifferenceKind;
    const std::string longer(400, 'x');
    const struct {
        std::string value, old, inValue, inOld;
        DifferenceKind kind;
    } cases[] = {
        {"same", "same", "same", "same", none},
        {"9820012345", "9820012346", "982001234[5]", "982001234[6]", plain},
        {"12 Hill Road", "12 Hall Road", "12 H[i]ll Road", "12 H[a]ll Road", plain},
        {"Flat 5, Mumbai", "Flat 5, Chennai", "Flat 5, [Mumbai]", "Flat 5, [Chennai]", plain},
        {"HDFC Bank", "HDFC", "HDFC[ Bank]", "HDFC", plain},
        {"", "x", "", "[x]", plain},
        {"007", "7", "[007]", "7", plain},
        {"ab cd", "ab  cd", "ab cd", "ab [ ]cd", blanks},
        {"ab ", "ab", "ab[ ]", "ab", blanks},
        {"a b",
         "a\xA0"
         "b",
         "a[ ]b", "a[\xA0]b", blanks},
        {"AB0CO", "ABOC0", "AB[0]C[O]", "AB[O]C[0]", alike},
        {"MICHAEL", "MlCHAEL", "M[I]CHAEL", "M[l]CHAEL", alike},
        {"M0IL", "MO1l", "[M0IL]", "[MO1l]", plain},
        {"Ill", "1l1", "[I]l[l]", "[1]l[1]", alike},
        {"burn", "bum", "bu[rn]", "bu[m]", alike},
        {"a" + longer + "b", "c" + longer + "d", "[a" + longer + "b]", "[c" + longer + "d]", plain},
        {longer + "1", longer + "2", longer + "[1]", longer + "[2]", plain},
    };
    for (const auto& each : cases) {
        const TextDifference found = differenceOf(each.value, each.old);
        EXPECT_EQ(marked(each.value, found.value), each.inValue);
        EXPECT_EQ(marked(each.old, found.old), each.inOld);
        EXPECT_EQ(found.kind, each.kind) << each.value;
    }
}

// Whatever the texts are: what is not marked is the same in both.
TEST(TextDifference, WithoutTheRunsNoUnmarkedCharacterIsNew) {
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        const auto text = [&] {
            std::string made(random() % 12, ' ');
            for (char& c : made) c = "abO0l1Irnm "[random() % 11];
            return made;
        };
        const std::string value = text(), old = text();
        const auto rest = [](std::string left, const std::vector<TextRun>& runs) {
            for (auto run = runs.rbegin(); run != runs.rend(); ++run)
                left.erase(run->from, run->to - run->from);
            return left;
        };
        const TextDifference found = differenceOf(value, old);
        const std::string a = rest(value, found.value), b = rest(old, found.old);
        // A word marked whole in one text can leave its letters in the other.
        const auto isWithin = [](const std::string& part, const std::string& whole) {
            std::size_t at = 0;
            for (const char c : whole) at += at < part.size() && part[at] == c ? 1 : 0;
            return at == part.size();
        };
        EXPECT_TRUE(isWithin(a, old) && isWithin(b, value)) << value << "|" << old;
        EXPECT_EQ(found.value.empty() && found.old.empty(), value == old);
    }
}

TEST(Unseen, BlanksThatDoNotShowAsOneGetSigns) {
    const struct {
        const char *text, *shown, *words;
    } cases[] = {
        {"plain text", "plain text", ""},
        {" a  b ", "_a__b_", "blank in front, 2 blanks at 3, blank at the end"},
        {"a\tb\x01\xA0", "a>b?~", "tab at 2, byte 01 at 4, no-break blank at the end"},
        {"   ", "___", "3 blanks and nothing else"},
        {"\t.\t.\t.\t.\t.", ">.>.>.>.>.", "tab in front, tab at 3, tab at 5, tab at 7, ..."},
    };
    for (const auto& [text, shown, words] : cases) {
        EXPECT_EQ(withSigns(text, kAsciiSigns), shown);
        EXPECT_EQ(unseenInWords(text), words);
        EXPECT_EQ(hasUnseen(text), *words != '\0');
    }
}

}  // namespace
