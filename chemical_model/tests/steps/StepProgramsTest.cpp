#include "AnySteps.h"
#include "TestPrinters.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <functional>
#include <vector>

/// \file
/// Random programs of steps on random molecules.

using namespace Qt::StringLiterals;
using namespace anySteps;
using namespace smallMolecules;
using chem::Modification;
using chem::MoleculeEntity;

namespace {

/// The choices of a property test.
struct AnyChoices
{
    int below(int end) { return *rc::gen::inRange(0, end); }
} anyChoices;

/// Applies a random program and calls `check` with each step, the molecule before it and the one
/// after it. A step that throws its message is left out.
template <typename Check>
MoleculeEntity runAnyProgram(MoleculeEntity molecule, Check check)
{
    constexpr qsizetype mostLinks = 64; // pieces that overlap multiply the links
    const int length = *rc::gen::inRange(0, 13);
    for (int i = 0; i < length; ++i) {
        const auto step = anyStep(&anyChoices, molecule.links().size() <= mostLinks);
        const QString before = describe(molecule);
        try {
            const MoleculeEntity result = step->transform(molecule);
            check(*step, molecule, result);
            RC_ASSERT(describe(molecule) == before);
            molecule = result;
        } catch (const char*) {
            RC_ASSERT(describe(molecule) == before);
        }
    }
    return molecule;
}

RC_GTEST_PROP(StepPrograms, TotalsAreTheSumOfTheParts, ())
{
    runAnyProgram(
        anyMolecule(&anyChoices), [](const auto&, const auto&, const MoleculeEntity& result) {
            const Sum sum = sumOfParts(result);
            RC_ASSERT(result.averageMass() == sum.averageMass);
            RC_ASSERT(result.monoMass() == sum.monoMass);
            RC_ASSERT(withoutZeros(result.formula().elementCountMap()) == withoutZeros(sum.counts));
        });
}

RC_GTEST_PROP(StepPrograms, HistoryGrowsByEachStepAndReachesBack, ())
{
    QList<int> types;
    QStringList states;
    MoleculeEntity molecule = anyMolecule(&anyChoices);
    molecule = runAnyProgram(
        molecule, [&](const auto& step, const MoleculeEntity& input, const auto& result) {
            types.append(step.type());
            states.append(describe(input));
            RC_ASSERT(historyTypes(result) == types);
        });

    QList<chem::TransformationEntity> history = molecule.transformations();
    RC_ASSERT(history.size() == states.size());
    for (qsizetype i = 0; i < history.size(); ++i) {
        RC_ASSERT(describe(history[i].original()) == states[i]);
        RC_ASSERT(history[i].original().transformations().size() == i);
    }
}

RC_GTEST_PROP(StepPrograms, HistoryCanBeReplayedFromItsStart, ())
{
    const MoleculeEntity start = anyMolecule(&anyChoices);
    const MoleculeEntity end = runAnyProgram(start, [](const auto&, const auto&, const auto&) {});
    MoleculeEntity replayed = start;
    const QList<chem::TransformationEntity> history = end.transformations();
    for (const chem::TransformationEntity& entry : history)
        replayed = entry.transform(replayed);
    RC_ASSERT(describe(replayed) == describe(end));
}

/// Whether this place is one that the bounds test of the steps refuses.
bool isRefused(const MoleculeEntity& molecule, const Position& place)
{
    const QList<chem::Chain> chains = molecule.chains();
    if (place.first > chains.size())
        return true;
    const bool chainExists = place.first >= 0 && place.first < chains.size();
    return chainExists && place.second > chains[place.first].residues().size();
}

RC_GTEST_PROP(StepPrograms, ModifyThrowsOnlyForOneRefusedPlace, ())
{
    const MoleculeEntity molecule = anyMolecule(&anyChoices);
    const Modification modification = anyModification(&anyChoices);
    const QList<Position> places = modification.possibleChainLocations();
    const bool refused = places.size() == 1 && isRefused(molecule, places.first());
    RC_ASSERT(thrownMessage(chem::Modify(modification), molecule).isEmpty() == !refused);
}

RC_GTEST_PROP(StepPrograms, UnmodifyTakesBackWhatModifyAdded, ())
{
    const MoleculeEntity molecule = anyMolecule(&anyChoices);
    const Modification modification = anyModification(&anyChoices);
    const chem::Modify put(modification);
    RC_PRE(thrownMessage(put, molecule).isEmpty());

    const MoleculeEntity modified = put.transform(molecule);
    const MoleculeEntity restored = chem::Unmodify(modification).transform(modified);
    RC_ASSERT(restored == molecule);
    RC_ASSERT(restored.averageMass() == molecule.averageMass());
    RC_ASSERT(restored.modifications().size() == molecule.modifications().size());
    RC_ASSERT(restored.sequence() == molecule.sequence());
    RC_ASSERT(historyTypes(restored) == QList<int>({0, 1}));
}

RC_GTEST_PROP(StepPrograms, ModifyMoleculeAgreesWithModifyOnTheMolecule, ())
{
    const MoleculeEntity molecule = anyMolecule(&anyChoices);
    const MoleculeEntity added = anyGroup(&anyChoices);
    const Position place = anyPosition(&anyChoices);
    RC_PRE(!isRefused(molecule, place));

    const MoleculeEntity rebuilt = chem::modifyMolecule(molecule, added, place);
    const MoleculeEntity stepped = chem::Modify(Modification(added, {place})).transform(molecule);
    RC_ASSERT(rebuilt == stepped);
    RC_ASSERT(rebuilt.chains() == stepped.chains());
    RC_ASSERT(rebuilt.modifications() == stepped.modifications());
    RC_ASSERT(rebuilt.transformations().isEmpty());
}

// Clips against ranges that are found another way: each cut is a place between two letters, and
// patterns are read by hand-written matchers in the place of the expression engine.

using Ranges = QList<QList<int>>; ///< Chain, start and end.

/// The length of a match at a place of the text, or -1.
using Matcher = std::function<int(const QString&, qsizetype)>;

struct Pattern
{
    QString text;
    Matcher match;
};

const QList<Pattern>& patterns()
{
    const auto oneOf = [](const QString& set) {
        return [set](const QString& text, qsizetype at) {
            return at < text.size() && set.contains(text[at]) ? 1 : -1;
        };
    };
    const auto literal = [](const QString& word) {
        return [word](const QString& text, qsizetype at) {
            return QStringView(text).mid(at, word.size()) == word ? static_cast<int>(word.size())
                                                                  : -1;
        };
    };
    static const QList<Pattern> list = {
        {u"K"_s, oneOf(u"K"_s)},
        {u"[KR]"_s, oneOf(u"KR"_s)},
        {u"AK"_s, literal(u"AK"_s)},
        {u"KK"_s, literal(u"KK"_s)},
        {u"K(?!P)"_s,
         [](const QString& text, qsizetype at) {
             const bool isCut = text.mid(at, 1) == u"K"_s && text.mid(at + 1, 1) != u"P"_s;
             return isCut ? 1 : -1;
         }},
        {u"^"_s,
         [](const QString&, qsizetype at) {
             return at == 0 ? 0 : -1;
         }},
        {u"x*"_s,
         [](const QString&, qsizetype) {
             return 0;
         }},
        {u"["_s,
         [](const QString&, qsizetype) {
             return -1;
         }},
    };
    return list;
}

/// Starts and ends of all matches from left to right, none over another.
QList<Position> matches(const Pattern& pattern, const QString& text)
{
    QList<Position> found;
    for (qsizetype at = 0; at <= text.size();) {
        const int length = pattern.match(text, at);
        if (length >= 0)
            found.append({static_cast<int>(at), static_cast<int>(at) + length});
        at += std::max(length, 1);
    }
    return found;
}

struct Rule
{
    int before; ///< Which pattern; -1 for none.
    int after;  ///< Which plain text, or which pattern if there is no `before`; -1 for none.
};

const QStringList plainTexts = {u"K"_s, u"P"_s, u"AK"_s};

QString afterText(const Rule& rule)
{
    if (rule.after < 0)
        return QString();
    return rule.before < 0 ? patterns()[rule.after].text
                           : plainTexts[rule.after % plainTexts.size()];
}

void addRuleRanges(const Rule& rule, const QString& text, int chain, Ranges* ranges)
{
    const int behind = static_cast<int>(text.size()) + 1;
    if (rule.before < 0 && rule.after < 0)
        return;
    const bool cutsBehind = rule.before >= 0;
    const QList<Position> found = matches(patterns()[cutsBehind ? rule.before : rule.after], text);
    for (const auto& [start, end] : found) {
        const int cut = cutsBehind ? end : start;
        if (cutsBehind && !text.mid(cut).startsWith(afterText(rule)))
            continue;
        if (cutsBehind || cut != 0)
            ranges->append({chain, 1, cut + 1});
        if (!cutsBehind || cut != text.size())
            ranges->append({chain, cut + 1, behind});
    }
}

Ranges clippedRanges(const MoleculeEntity& molecule, const chem::ClipOptions& options)
{
    Ranges found;
    const QList<MoleculeEntity> clips = chem::generateClips(molecule, nullptr, options);
    for (const MoleculeEntity& clip : clips) {
        const QList<chem::Chain> chains = clip.chains();
        const chem::ParentChainLocus locus = chains.first().parentLocus();
        found.append({locus.chain, locus.start, locus.end});
    }
    return found;
}

QStringList anyTexts()
{
    QStringList texts;
    const int count = *rc::gen::inRange(0, 4);
    for (int chain = 0; chain < count; ++chain) {
        const auto letters =
            *rc::gen::container<std::vector<char>>(rc::gen::element('A', 'K', 'R', 'P'));
        texts.append(QString::fromLatin1(letters.data(), static_cast<qsizetype>(letters.size())));
    }
    return texts;
}

MoleculeEntity moleculeOfTexts(const QStringList& texts)
{
    QList<chem::Chain> chains;
    for (const QString& text : texts)
        chains.append(letterChain(text));
    return moleculeOf(chains);
}

RC_GTEST_PROP(StepPrograms, ClipsByRuleAreTheCutsThatAReaderFinds, ())
{
    const QStringList texts = anyTexts();
    const auto kind = rc::gen::inRange(-1, static_cast<int>(patterns().size()));
    const auto choices = *rc::gen::container<std::vector<std::pair<int, int>>>(
        static_cast<std::size_t>(*rc::gen::inRange(0, 4)), rc::gen::pair(kind, kind));
    QStringList before;
    QStringList after;
    for (const auto& [first, second] : choices) {
        before.append(first < 0 ? QString() : patterns()[first].text);
        after.append(afterText({first, second}));
    }

    Ranges expected;
    for (int chain = 0; chain < texts.size(); ++chain) {
        expected.append({chain, 0, static_cast<int>(texts[chain].size()) + 1});
        for (const auto& [first, second] : choices)
            addRuleRanges({first, second}, texts[chain], chain, &expected);
    }
    RC_ASSERT(clippedRanges(moleculeOfTexts(texts),
                            chem::ClipOptions::createClipByResidue(before, after)) == expected);
}

/// The trims of a chain by how many residues go at each end.
void addTrims(int chain, int residues, int startDepth, int endDepth, Ranges* ranges)
{
    ranges->append({chain, 1, residues + 1});
    for (int off = 1; off <= startDepth && off < residues; ++off)
        ranges->append({chain, 1 + off, residues + 1});
    for (int off = 1; off <= endDepth && off < residues; ++off)
        ranges->append({chain, 1, residues + 1 - off});
}

RC_GTEST_PROP(StepPrograms, ClipsByDepthAreTheTrimsThatLeaveAResidue, ())
{
    const QStringList texts = anyTexts();
    const auto depth = rc::gen::oneOf(rc::gen::inRange(-2, 8), rc::gen::arbitrary<int>());
    const auto [startSingle, endSingle, startDouble, endDouble] =
        *rc::gen::tuple(depth, depth, depth, depth);

    Ranges expected;
    for (int chain = 0; chain < texts.size(); ++chain) {
        addTrims(chain, static_cast<int>(texts[chain].size()), startSingle, endSingle, &expected);
    }
    for (int chain = 0; chain < texts.size(); ++chain) {
        const int residues = static_cast<int>(texts[chain].size());
        for (int left = 1; left < residues; ++left) {
            for (int right = 1; left + right < residues; ++right) {
                if (left <= startDouble && right <= endDouble)
                    expected.append({chain, 1 + left, residues + 1 - right});
            }
        }
    }
    const auto options =
        chem::ClipOptions::createClipByDepth(startSingle, endSingle, startDouble, endDouble);
    RC_ASSERT(clippedRanges(moleculeOfTexts(texts), options) == expected);
}

RC_GTEST_PROP(StepPrograms, ClipsOfAnyMoleculeAreSumsOfTheirParts, ())
{
    const MoleculeEntity molecule =
        runAnyProgram(anyMolecule(&anyChoices), [](const auto&, const auto&, const auto&) {});
    const QString before = describe(molecule);
    for (const chem::ClipOptions& options :
         {chem::ClipOptions::createClipAll(), chem::ClipOptions::createClipByDepth(2, 2, 2, 2),
          chem::ClipOptions::createClipByResidue({u"[KR]"_s}, {QString()})}) {
        const QList<MoleculeEntity> clips = chem::generateClips(molecule, nullptr, options);
        for (const MoleculeEntity& clip : clips) {
            const Sum sum = sumOfParts(clip);
            RC_ASSERT(clip.averageMass() == sum.averageMass);
            RC_ASSERT(clip.monoMass() == sum.monoMass);
            RC_ASSERT(clip.transformations().size() == molecule.transformations().size() + 1);
        }
    }
    RC_ASSERT(describe(molecule) == before);
}

} // namespace
