#include "core/FuzzySearch.h"

#include <algorithm>

namespace {

constexpr int scorePerCharacter = 60;
constexpr int gapWeight = 3;
constexpr int gapPenalty = 20;

/// Folds character by character, so that places stay what they are.
QString withoutSpacesAndCase(QString const& text) {
    QString folded;
    folded.reserve(text.size());
    for (QChar const character : text) {
        if (character != QLatin1Char(' '))
            folded += character.toCaseFolded();
    }
    return folded;
}

/// The first place of each character of `query` behind the one before, from `first` on; false if there is none.
bool buildChain(QString const& query, QString const& text, qsizetype first, std::vector<int>& chain) {
    chain.clear();
    qsizetype place = first - 1;
    for (QChar const character : query) {
        place = text.indexOf(character, place + 1);
        if (place < 0)
            return false;
        chain.push_back(static_cast<int>(place));
    }
    return true;
}

int scoreOf(std::vector<int> const& chain) {
    int score = static_cast<int>(chain.size()) * scorePerCharacter;
    for (std::size_t i = 1; i < chain.size(); ++i) {
        int const gap = chain[i] - chain[i - 1];
        if (gap > 1)
            score -= gap * gapWeight + gapPenalty;
    }
    return score;
}

void addSpacesBack(std::vector<int>& positions, QString const& text) {
    for (qsizetype space = text.indexOf(QLatin1Char(' ')); space >= 0;
         space = text.indexOf(QLatin1Char(' '), space + 1)) {
        for (int& position : positions) {
            position += position >= space ? 1 : 0;
        }
    }
}

} // namespace

void Utilities::fuzzySearchScoreAndMatch(int& score, std::vector<int>& positions, QString query, QString const& text) {
    score = -1;
    positions.clear();
    query = withoutSpacesAndCase(query);
    if (query.isEmpty())
        return;
    QString const searched = withoutSpacesAndCase(text);
    std::vector<int> chain;
    // A chain that fails leaves none for later starts either: they have even less text behind them.
    for (qsizetype start = searched.indexOf(query.front()); start >= 0 && buildChain(query, searched, start, chain);
         start = searched.indexOf(query.front(), start + 1)) {
        int const chainScore = scoreOf(chain);
        if (chainScore > score) {
            score = chainScore;
            positions = chain;
        }
    }
    addSpacesBack(positions, text);
}
