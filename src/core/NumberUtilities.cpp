#include "core/NumberUtilities.h"

#include <QLocale>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <numeric>
#include <string>
#include <string_view>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr std::string_view euro = "€";
constexpr std::string_view currencySymbols[] = {"$", "£", "¥", euro};

/// How the system writes numbers, read once.
struct NumberLanguage {
    std::string decimal = QLocale::system().decimalPoint().toStdString();
    std::string group = QLocale::system().groupSeparator().toStdString();
};

NumberLanguage const& language() {
    static NumberLanguage const read;
    return read;
}

bool take(std::string_view& text, std::string_view word) {
    if (word.empty() || !text.starts_with(word))
        return false;
    text.remove_prefix(word.size());
    return true;
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Whether nothing stands behind a number but a "€", which a blank may precede and a blank may follow.
bool isTrailingCurrency(std::string_view text) {
    take(text, " ");
    if (!take(text, euro))
        return false;
    take(text, " ");
    return text.empty();
}

/// Moves an exponent, a sign and digits to the end of the text, over to `number`. False for anything else.
bool takeExponent(std::string_view text, std::string& number) {
    number += 'e';
    if (take(text, "-"))
        number += '-';
    number += text.empty() ? "0" : text;
    return std::all_of(text.begin(), text.end(), isDigit);
}

/// Reads digits with one decimal point and perhaps an exponent.
double parse(std::string const& number) {
    double value = 0;
    auto const result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range)
        return std::strtod(number.c_str(), nullptr);
    return value;
}

/// How many decimals bring a number to the 15 digits that a double holds for sure; more would show its rounding.
int decimalsOf(double value) {
    constexpr int sureDigits = 15;
    int const digitsBeforePoint = static_cast<int>(std::floor(std::log10(std::abs(value)))) + 1;
    return std::max(sureDigits - digitsBeforePoint, 0);
}

QString withoutTrailingZeros(QString text, QString const& decimalPoint) {
    if (!text.contains(decimalPoint))
        return text;
    while (text.endsWith(QLatin1Char('0')))
        text.chop(1);
    if (text.endsWith(decimalPoint))
        text.chop(decimalPoint.size());
    return text;
}

} // namespace

double Utilities::convertStringToDouble(QByteArray const& utf8, bool allowCurrency) {
    std::string_view text(utf8.constData(), static_cast<std::size_t>(utf8.size()));
    if (text.empty())
        return notANumber;
    bool const negative = take(text, "-");
    if (allowCurrency)
        std::any_of(std::begin(currencySymbols), std::end(currencySymbols),
                    [&](std::string_view symbol) { return take(text, symbol); });
    std::string number = "0";
    bool inFraction = false;
    while (!text.empty()) {
        if (isDigit(text.front())) {
            number += text.front();
            text.remove_prefix(1);
        } else if (take(text, language().decimal)) {
            number += inFraction ? "" : ".";
            inFraction = true;
        } else if (take(text, "e") || take(text, "E")) {
            if (!takeExponent(text, number))
                return notANumber;
            break;
        } else if (!take(text, language().group)) {
            if (!allowCurrency || !isTrailingCurrency(text))
                return notANumber;
            break;
        }
    }
    double const value = parse(number);
    return negative ? -value : value;
}

QString Utilities::convertNumberToString(double value, bool useThousandsSeparators) {
    constexpr double scientificFrom = 1e15;
    constexpr int scientificDigits = 5;
    if (std::isnan(value))
        return QStringLiteral("-");
    if (value == 0)
        return QStringLiteral("0");
    QLocale locale = QLocale::system();
    if (!useThousandsSeparators)
        locale.setNumberOptions(locale.numberOptions() | QLocale::OmitGroupSeparator);
    if (std::abs(value) < scientificFrom)
        return withoutTrailingZeros(locale.toString(value, 'f', decimalsOf(value)), locale.decimalPoint());
    QString const text = locale.toString(value, 'e', scientificDigits);
    qsizetype const exponent = text.indexOf(QLatin1Char('e'));
    if (exponent < 0)
        return text;
    return withoutTrailingZeros(text.left(exponent), locale.decimalPoint()) + text.mid(exponent);
}

double Utilities::computeSum(std::vector<double> const& values) {
    return std::accumulate(values.begin(), values.end(), 0.0);
}
