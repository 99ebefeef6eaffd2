#include "core/TextOrderKeys.h"

#include "core/NumberUtilities.h"

#include <QStringList>
#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>

namespace {

/// The same rules, written down rule by rule on whole strings.
namespace plainly {

bool isIdentifier(QString text) {
    while (text.startsWith(' '))
        text.remove(0, 1);
    return text.startsWith('0') && !text.startsWith("0.");
}

double number(QString const& text) {
    return text.contains('_') ? qQNaN() : Utilities::convertStringToDouble(text.toUtf8(), false);
}

QStringList runs(QString const& text) {
    QStringList list;
    bool digits = false;
    for (QChar const c : text) {
        bool const digit = c >= '0' && c <= '9';
        if (list.isEmpty() || digit != digits)
            list << QString();
        list.back() += c;
        digits = digit;
    }
    return list;
}

bool startsWithDigit(QString const& text) {
    return text[0] >= '0' && text[0] <= '9';
}

qulonglong value(QString const& digits) {
    bool fits = false;
    qulonglong const number = digits.toULongLong(&fits);
    return fits ? number : ULLONG_MAX;
}

/// Negative, zero or positive, as `a` goes before, beside or behind `b` in an ascending order.
int natural(QString a, QString b) {
    auto const strip = [](QString& text) {
        int blanks = 0;
        for (; text.startsWith(' '); ++blanks)
            text.remove(0, 1);
        return blanks;
    };
    if (int const difference = strip(a) - strip(b); difference != 0)
        return difference;
    if (a.isEmpty() || b.isEmpty())
        return int(a.isEmpty()) - int(b.isEmpty());
    if (startsWithDigit(a) != startsWithDigit(b))
        return a < b ? -1 : 1;
    QStringList const runsA = runs(a);
    QStringList const runsB = runs(b);
    for (qsizetype i = 0; i < std::min(runsA.size(), runsB.size()); ++i) {
        bool const digits = startsWithDigit(runsA[i]);
        if (digits && value(runsA[i]) != value(runsB[i]))
            return value(runsA[i]) < value(runsB[i]) ? -1 : 1;
        if (!digits && runsA[i] != runsB[i])
            return runsA[i] < runsB[i] ? -1 : 1;
    }
    return int(runsA.size() - runsB.size());
}

bool isBefore(QString const& a, QString const& b, bool descending) {
    if (a == b)
        return false;
    if (a.isEmpty())
        return descending;
    if (b.isEmpty())
        return !descending;
    if (isIdentifier(a) || isIdentifier(b))
        return (a < b) != descending;
    double const numberA = number(a);
    double const numberB = number(b);
    if (numberA == numberA && numberB == numberB)
        return numberA != numberB && (numberA < numberB) != descending;
    int const order = natural(a, b);
    return order != 0 && (order < 0) != descending;
}

} // namespace plainly

QStringList sorted(QStringList const& texts, bool descending, bool caseSensitive = true) {
    TextOrderKeys keys(caseSensitive);
    TextOrderKeys fromBytes(caseSensitive);
    for (QString const& text : texts) {
        keys.add(text);
        fromBytes.addAscii(text.toStdString());
    }
    EXPECT_EQ(fromBytes.sortedOrder(descending), keys.sortedOrder(descending));
    QStringList result;
    for (int const place : keys.sortedOrder(descending))
        result << texts[place];
    return result;
}

std::vector<int> plainlySortedOrder(QStringList const& texts, bool descending) {
    std::vector<int> order(static_cast<std::size_t>(texts.size()));
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [&](int a, int b) { return plainly::isBefore(texts[a], texts[b], descending); });
    return order;
}

} // namespace

TEST(TextOrderKeys, OrdersByTheFirstRuleThatDecides) {
    EXPECT_EQ(sorted({"10", "9", "1a", ""}, false), QStringList({"1a", "9", "10", ""})); // 1 is less than 9 and 10
    EXPECT_EQ(sorted({"10", "9", "1a", ""}, true), QStringList({"", "10", "9", "1a"}));
    EXPECT_EQ(sorted({"7", "007"}, false), QStringList({"007", "7"}));
    EXPECT_TRUE(Utilities::qStringCompare("999", "1,000", false));
    EXPECT_TRUE(Utilities::qStringCompare("1_000", "999", false)); // "_" makes it a text, whose first run is 1
    EXPECT_EQ(sorted({"file10", "file9", "file"}, false), QStringList({"file", "file9", "file10"}));
    EXPECT_EQ(sorted({"  b", " c", "a", "   "}, false), QStringList({"a", " c", "  b", "   "}));
    EXPECT_EQ(sorted({"B", "a", "C", "b"}, false), QStringList({"B", "C", "a", "b"}));
    EXPECT_EQ(sorted({"B", "a", "C", "b"}, false, false), QStringList({"a", "B", "b", "C"}));
    EXPECT_EQ(sorted({"Z", "[", "z", "a", "A", "@"}, false, false), QStringList({"@", "[", "a", "A", "Z", "z"}));
    EXPECT_EQ(sorted({"nan", "3", "-1"}, false), QStringList({"-1", "3", "nan"}));
    for (bool const descending : {false, true}) // equal values keep their order
        EXPECT_EQ(sorted({"1.0", "1", "1.00"}, descending), QStringList({"1.0", "1", "1.00"}));
}

TEST(TextOrderKeys, FastOrdersAreThoseOfTheRulesPlainlyWritten) {
    QStringList const columns[] = {
        {"0", "5", "-3", "12.5", "0.5", "1e3", "", "-0.25", "7", "10"}, // numbers, and zero among them
        {"0", "5", "-0", "0.0", ".5", "-3", ",5"},                      // zeros that a value cannot place
        {"007", "0", "01", "0a", "00", " 03", ""},                      // identifiers
        {"a1", "a01", "a10", "a2b", "a2", "A", "", "b", "a", "2x", "10x", "~", "é", "\u4e2d", "\U0001F600", "\uFFFD"},
        {"x y", " x", "  ", "   a", "3 a", " 3 a", "#", QString::fromLatin1("n\0ul", 4), "\1", "n"},
        {"99999999999999999999a", "99999999999999999998a", "5a", "18446744073709551615a"},
        {"1", "word", "02", "", "1_000", "3.5", "x7", "-2", "0", " 4"}, // all kinds
    };
    std::mt19937 random(7);
    for (QStringList const& words : columns) {
        for (int round = 0; round < 60; ++round) {
            QStringList texts;
            for (int i = 0; i < 40; ++i)
                texts << words[int(random() % std::size_t(words.size()))];
            for (bool const descending : {false, true}) {
                TextOrderKeys keys;
                for (QString const& text : texts) {
                    bool const ascii = std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 128; });
                    ascii ? keys.addAscii(text.toStdString()) : keys.add(text);
                }
                ASSERT_EQ(keys.sortedOrder(descending), plainlySortedOrder(texts, descending))
                    << qPrintable(texts.join(" | "));
            }
        }
    }
    for (QStringList const& words : columns) {
        for (QString const& a : words) {
            for (QString const& b : words)
                EXPECT_EQ(Utilities::qStringCompare(a, b, true), plainly::isBefore(a, b, true));
        }
    }
}

TEST(TextOrderKeys, ASortEndsWhenItIsToldTo) {
    TextOrderKeys keys;
    for (int i = 0; i < 20000; ++i)
        keys.addAscii(std::to_string(i * 7919 % 20000));
    double last = 0;
    EXPECT_TRUE(keys.sortedOrder(false, [&](double share) { return (last = share) < 0.5; }).empty());
    EXPECT_GE(last, 0.5);
    EXPECT_EQ(keys.sortedOrder(false, [](double) { return true; }).size(), 20000U);
}
