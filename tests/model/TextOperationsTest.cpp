#include "model/text/CaseConversion.h"
#include "model/text/LeadingZeros.h"
#include "model/text/Uuid.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QSet>
#include <gtest/gtest.h>

namespace {

using Operation = QString (*)(QString const&);

TEST(TextOperations, EachTextBecomesWhatItsOperationSays) {
    struct {
        Operation operation;
        QString text;
        QString expected;
    } const cases[] = {
        {Utilities::convertToTitleCase, "THE LORD of THE rings", "The Lord of the Rings"},
        {Utilities::convertToTitleCase, "of mice and men", "Of Mice and Men"},
        {Utilities::convertToTitleCase, "well-known and/or,by  far ", "Well-Known and/or,by  Far "},
        {Utilities::convertToTitleCase, "don't (stop) 3rd élan", "Don't (Stop) 3rd Élan"},
        {Utilities::convertToTitleCase, "", ""},
        {Utilities::convertToUpperCamelCase, "some words, here", "SomeWordsHere"},
        {Utilities::convertToUpperCamelCase, "UPPER_SNAKE-2nd", "UpperSnake2nd"},
        {Utilities::convertToLowerCamelCase, "Some words here", "someWordsHere"},
        {Utilities::convertToLowerCamelCase, "HTMLPage title", "htmlPageTitle"},
        {Utilities::convertToUpperSnakeCase, "twoWords don't", "TWO_WORDS_DONT"},
        {Utilities::convertToLowerSnakeCase, "  A (small) Étude ", "a_small_étude"},
        {Utilities::convertToAcronym, "light amplification by-stimulated (of) emission", "LABSE"},
        {Utilities::convertToAcronym, "(all) (out)", ""},
        {Utilities::removeLeadingZeros, "007", "7"},
        {Utilities::removeLeadingZeros, "000", "0"},
        {Utilities::removeLeadingZeros, "-00.50", "-0.50"},
        {Utilities::removeLeadingZeros, "No. 0012 of 007.5", "No. 12 of 7.5"},
        {Utilities::removeLeadingZeros, "100.5", "100.5"},
        {Utilities::removeLeadingZeros, "10 002", "10 002"},
        {Utilities::removeLeadingZeros, "0", "0"},
    };
    for (auto const& test : cases)
        EXPECT_EQ(test.operation(test.text), test.expected) << test.text.toStdString();
}

TEST(TextOperations, UuidsHaveTheirVersionTheirFormAndTheirTime) {
    for (UuidType const type : {UuidType::Random, UuidType::TimeOrdered}) {
        QString const version = type == UuidType::Random ? "4" : "7";
        QRegularExpression const form("^[0-9a-f]{8}-[0-9a-f]{4}-" + version +
                                      "[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}$");
        QSet<QString> made;
        for (int i = 0; i < 1000; ++i) {
            QString const uuid = Utilities::generateUuid(false, false, type);
            ASSERT_TRUE(form.match(uuid).hasMatch()) << uuid.toStdString();
            made.insert(uuid);
        }
        EXPECT_EQ(made.size(), 1000);
        QString const dressed = Utilities::generateUuid(true, true, type);
        EXPECT_TRUE(form.match(dressed.mid(1, 36).toLower()).hasMatch() && dressed.startsWith('{') &&
                    dressed.endsWith('}') && dressed == dressed.toUpper());
    }
    qint64 const before = QDateTime::currentMSecsSinceEpoch();
    QString const uuid = Utilities::generateUuid(false, false, UuidType::TimeOrdered);
    qint64 const stamp = uuid.left(13).remove('-').toLongLong(nullptr, 16);
    EXPECT_GE(stamp, before);
    EXPECT_LE(stamp, QDateTime::currentMSecsSinceEpoch());
}

} // namespace
