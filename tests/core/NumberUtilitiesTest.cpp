#include "core/NumberUtilities.h"

#include <QLocale>
#include <gtest/gtest.h>

#include <cmath>

TEST(NumberUtilities, ReadsWhatPeopleWriteAsNumbers) {
    ASSERT_EQ(QLocale::system().decimalPoint(), ".") << "these cases are written for a point";
    struct Case {
        char const* text;
        bool currency;
        double value;
    };
    double const no = std::nan("");
    Case const cases[] = {
        {"", true, no},
        {"-", false, 0},
        {"$", true, 0},
        {"$", false, no},
        {"42", false, 42},
        {"-1.5", false, -1.5},
        {"1,234,567.25", false, 1234567.25},
        {"1e3", false, 1000},
        {"2.5E-1", false, .25},
        {"1e3x", false, no},
        {"abc", true, no},
        {"nan", true, no},
        {"$12", true, 12},
        {"-£12", true, -12},
        {"12 €", true, 12},
        {"12€ ", true, 12},
        {"12 x", true, no},
        {"0.1", false, 0.1},
        {" 1", false, no},
        {"1e400", false, HUGE_VAL},
    };
    for (Case const& entry : cases) {
        double const value = Utilities::convertStringToDouble(entry.text, entry.currency);
        if (std::isnan(entry.value))
            EXPECT_TRUE(std::isnan(value)) << entry.text;
        else
            EXPECT_EQ(value, entry.value) << entry.text;
    }
}

TEST(NumberUtilities, WritesNumbersWithoutExcessDigits) {
    EXPECT_EQ(Utilities::convertNumberToString(std::nan(""), true), "-");
    EXPECT_EQ(Utilities::convertNumberToString(-0.0, true), "0");
    EXPECT_EQ(Utilities::convertNumberToString(0.5, true), "0.5");
    EXPECT_EQ(Utilities::convertNumberToString(0.000001, true), "0.000001");
    EXPECT_EQ(Utilities::convertNumberToString(33.71 + 73.68 + 115.64 + 16.91, true), "239.94");
    EXPECT_EQ(Utilities::convertNumberToString(0.1 + 0.2, true), "0.3");
    EXPECT_EQ(Utilities::convertNumberToString(1200, true), "1,200");
    EXPECT_EQ(Utilities::convertNumberToString(999999999999999, false), "999999999999999");
    EXPECT_EQ(Utilities::convertNumberToString(1234.5, false), "1234.5");
    EXPECT_EQ(Utilities::convertNumberToString(1.5e15, true), "1.5e+15");
    EXPECT_EQ(Utilities::convertNumberToString(-2e20, true), "-2e+20");
    EXPECT_EQ(Utilities::computeSum({1, 2, 3.5}), 6.5);
}
