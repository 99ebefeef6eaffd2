#include "core/IndexUtilities.h"

#include <algorithm>
#include <climits>

void Utilities::getOrderedSet(std::vector<int>& out, std::vector<int> const& in) {
    out = in;
    std::sort(out.begin(), out.end());
    out.erase(std::unique(out.begin(), out.end()), out.end());
}

std::vector<std::pair<int, int>> Utilities::getBlockPairs(std::vector<int> const& sorted) {
    std::vector<std::pair<int, int>> blocks;
    for (int number : sorted) {
        if (!blocks.empty() && number - blocks.back().second <= 1)
            blocks.back().second = number;
        else
            blocks.emplace_back(number, number);
    }
    return blocks;
}

std::vector<int> Utilities::invertSortIndexesVector(std::vector<int> const& indexes) {
    std::vector<int> inverse(indexes.size());
    for (std::size_t i = 0; i < indexes.size(); ++i)
        inverse[indexes[i]] = static_cast<int>(i);
    return inverse;
}

QString Utilities::convertNumberToLetters(int number) {
    QString letters;
    for (; number >= 0; number = number / 26 - 1)
        letters.prepend(QLatin1Char(static_cast<char>('A' + number % 26)));
    return letters;
}

int Utilities::convertLettersToNumber(QString const& letters) {
    qint64 number = 0;
    for (QChar letter : letters) {
        char const upper = letter.toUpper().toLatin1();
        if (upper < 'A' || upper > 'Z')
            return INT_MIN;
        number = number * 26 + (upper - 'A' + 1);
        if (number > INT_MAX)
            return INT_MIN;
    }
    return letters.isEmpty() ? INT_MIN : static_cast<int>(number - 1);
}
