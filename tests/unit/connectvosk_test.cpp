#include "sdk/connectvosk.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>

namespace {

// A message of the library in a buffer of a given size.
class ConnectvoskTest : public testing::Test {
protected:
    void start(int size = 4096) {
        ASSERT_TRUE(otp_open_scratch(&m_scratch, size, nullptr));
        ASSERT_TRUE(otp_start_msg(m_message, m_scratch, nullptr));
    }
    int add(int id, const char* text) {
        return otp_add_data_as_cstring(m_message, id, 1, text, nullptr);
    }
    int count(int id) {
        int occurrences = -1;
        otp_get_field(m_message, id, nullptr, &occurrences, nullptr);
        return occurrences;
    }
    std::string text(int id, int occurrence = 0) {
        const char* found = "(none)";
        otp_get_data_as_cstring(m_message, id, occurrence, &found, nullptr);
        return found;
    }
    void SetUp() override { ASSERT_TRUE(otp_ctor_primecb(&m_message, nullptr)); }
    void TearDown() override {
        otp_fail_call(0);
        otp_dtor_primecb(m_message, nullptr);
        otp_close_scratch(m_scratch, nullptr);
    }

    void* m_message = nullptr;
    void* m_scratch = nullptr;
};

TEST_F(ConnectvoskTest, ReadsFieldsAndOccurrencesAsAppended) {
    start();
    EXPECT_TRUE(add(0, "om_name"));
    EXPECT_TRUE(add(30001, "new"));
    EXPECT_TRUE(add(51803, ""));
    EXPECT_TRUE(add(30001, nullptr));
    EXPECT_TRUE(add(30001, "third"));

    EXPECT_EQ(text(0), "om_name");
    EXPECT_EQ(count(30001), 3);
    EXPECT_EQ(text(30001, 0), "new");
    EXPECT_EQ(text(30001, 1), "(none)");
    EXPECT_EQ(text(30001, 2), "third");
    EXPECT_EQ(text(30001, 3), "(none)");
    EXPECT_EQ(text(30001, -1), "(none)");
    EXPECT_EQ(text(51803), "");
    EXPECT_EQ(count(99), -1);

    std::string order;
    for (int place = 0; place < otp_field_count(m_message); ++place)
        order += std::to_string(otp_field_at(m_message, place)) + " ";
    EXPECT_EQ(order, "0 30001 51803 30001 30001 ");
    EXPECT_EQ(otp_field_at(m_message, 5), -1);
    EXPECT_EQ(otp_field_at(m_message, -1), -1);
}

TEST_F(ConnectvoskTest, ReadsNumbersOnlyWhenTheWholeTextIsOne) {
    struct Row {
        const char* text;
        bool isInt, isLong, isDouble;
        double value;
    };
    const Row rows[] = {
        {"0", true, true, true, 0},
        {"-42", true, true, true, -42},
        {"2147483647", true, true, true, INT_MAX},
        {"2147483648", false, true, true, 2147483648.0},
        {"9223372036854775808", false, false, true, 9223372036854775808.0},
        {"1500.25", false, false, true, 1500.25},
        {"1e3", false, false, true, 1000},
        {"1e999", false, false, false, 0},
        {"12 ", false, false, false, 0},
        {"12x", false, false, false, 0},
        {"", false, false, false, 0},
        {nullptr, false, false, false, 0},
    };
    start();
    int id = 0;
    for (const Row& row : rows) {
        ASSERT_TRUE(add(++id, row.text));
        SCOPED_TRACE(row.text != nullptr ? row.text : "(unreadable)");
        int whole = 7;
        long long wide = 7;
        double real = 7;
        EXPECT_EQ(otp_get_data_as_int(m_message, id, 0, &whole, nullptr), row.isInt);
        EXPECT_EQ(otp_get_data_as_long(m_message, id, 0, &wide, nullptr), row.isLong);
        EXPECT_EQ(otp_get_data_as_double(m_message, id, 0, &real, nullptr), row.isDouble);
        EXPECT_EQ(whole, row.isInt ? static_cast<int>(row.value) : 7);
        EXPECT_EQ(wide, row.isLong ? static_cast<long long>(row.value) : 7);
        EXPECT_EQ(real, row.isDouble ? row.value : 7);
    }
}

}  // namespace
