#include "search/CandidateText.h"

#include <algorithm>

namespace tool {

namespace {

const ions::Modification& modificationOf(RuleIndex index, const Rules& rules)
{
    const auto place = std::size_t(index);
    const std::size_t variable = rules.variable.size();
    return place < variable ? rules.variable[place].modification
                            : rules.fixed[place - variable].modification;
}

} // namespace

QString peptidoformText(const Candidate& candidate, const Rules& rules)
{
    ions::PeptidoformChain chain;
    chain.residues = candidate.letters;
    const std::size_t last = candidate.places.size() - 1;
    for (std::size_t i = 0; i <= last; ++i) {
        if (candidate.places[i] == noRule)
            continue;
        const ions::Modification& modification = modificationOf(candidate.places[i], rules);
        if (i == 0)
            chain.leftEnd.push_back(modification);
        else if (i == last)
            chain.rightEnd.push_back(modification);
        else
            chain.modifications.push_back({qsizetype(i) - 1, modification});
    }
    ions::PeptidoformIon ion;
    ion.chains.push_back(std::move(chain));
    ions::Peptidoform peptidoform;
    peptidoform.ions.push_back(std::move(ion));
    return peptidoform.toString();
}

QString reversedPeptide(QStringView letters, bool isCutBefore)
{
    QString reversed = letters.toString();
    if (!reversed.isEmpty())
        std::reverse(reversed.begin() + (isCutBefore ? 1 : 0),
                     reversed.end() - (isCutBefore ? 0 : 1));
    return reversed;
}

QString targetLetters(const Candidate& candidate, bool isCutBefore)
{
    return candidate.isDecoy ? reversedPeptide(candidate.letters, isCutBefore) : candidate.letters;
}

bool cutsBefore(const ions::CleavageAgent& agent)
{
    const QString& expression = agent.expression();
    return expression.contains(QLatin1String("(?=")) && !expression.contains(QLatin1String("(?<="));
}

} // namespace tool
