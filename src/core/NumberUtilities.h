#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

namespace Utilities {

/// The number that a cell's UTF-8 text says in the system's locale, NaN if it says none. Thousands separators are
/// skipped wherever they stand. With `allowCurrency` a currency symbol may stand in front, or a "€" behind.
double convertStringToDouble(QByteArray const& text, bool allowCurrency);

/// A number as the system's locale writes it: fixed with as many decimals as it needs, scientific from 10^15 on, "-"
/// for NaN.
QString convertNumberToString(double value, bool useThousandsSeparators);

/// The sum, added in the order of the vector.
double computeSum(std::vector<double> const& values);

} // namespace Utilities
