#include "Families.h"
#include "Molecules.h"

#include <limits>

using namespace Qt::StringLiterals;
using namespace chem;

namespace {

constexpr quint64 seed = 11;
constexpr int moleculeCount = 160;
constexpr int optionsPerMolecule = 4;

/// Expressions whose meaning is the same in all releases of the engine, one that is invalid and
/// ones that match nothing at all.
const QList<QString> expressions = {u"K"_s,   u"[KR]"_s, u"[KR](?!P)"_s, u"."_s,      u"("_s,
                                    u"A|G"_s, u"K?"_s,   u"[^KR]"_s,     u"(?<=K)"_s, u"^."_s,
                                    u"S$"_s,  u"GAS"_s,  u"[DE]+"_s};

int anyDepth(Choices* choices)
{
    static const QList<int> extremes = {std::numeric_limits<int>::max(),
                                        std::numeric_limits<int>::min(), -1};
    return choices->oneIn(8) ? choices->of(extremes) : choices->below(4);
}

ClipOptions anyDepths(Choices* choices)
{
    const int startSingle = anyDepth(choices);
    const int endSingle = anyDepth(choices);
    const int startDouble = anyDepth(choices);
    const int endDouble = anyDepth(choices);
    return ClipOptions::createClipByDepth(startSingle, endSingle, startDouble, endDouble);
}

ClipOptions anyRules(Choices* choices)
{
    QList<QString> before;
    QList<QString> after;
    for (int rules = choices->from(0, 3); rules > 0; --rules) {
        before.append(choices->oneIn(4) ? QString() : choices->of(expressions));
        const QString empty = choices->oneIn(2) ? QString() : u""_s; // null or not is the same
        after.append(choices->oneIn(2) ? empty : choices->text(u"KRGASP"_s, 1));
    }
    if (choices->oneIn(4))
        before.append(u"K"_s); // without a partner
    return ClipOptions::createClipByResidue(before, after);
}

ClipOptions anyOptions(Choices* choices)
{
    switch (choices->below(6)) {
    case 0:
        return ClipOptions::createNoClipping();
    case 1:
        return ClipOptions::createClipAll();
    case 2:
    case 3:
        return anyDepths(choices);
    default:
        return anyRules(choices);
    }
}

void askOptions(Answers* answers, const ClipOptions& options)
{
    answers->add("ClipOptions", static_cast<int>(options.clipType()),
                 options.depthFromStartSingle(), options.depthFromEndSingle(),
                 options.depthFromStartDouble(), options.depthFromEndDouble());
    const auto rules = options.residueBeforeAfterVector();
    for (const auto& [before, after] : rules)
        answers->detail(before, after);
}

void askClips(Answers* answers, const MoleculeEntity& molecule, const ClipOptions& options)
{
    const QList<MoleculeEntity> clips = generateClips(molecule, nullptr, options);
    answers->add("generateClips", molecule.sequence(), clips.size());
    for (const MoleculeEntity& clip : clips)
        answers->detail(clip);
}

} // namespace

void askClips(Answers* answers)
{
    Choices choices(seed);
    askOptions(answers, ClipOptions());
    for (int i = 0; i < moleculeCount; ++i) {
        const MoleculeEntity molecule = anyMolecule(&choices);
        for (int k = 0; k < optionsPerMolecule; ++k) {
            const ClipOptions options = anyOptions(&choices);
            askOptions(answers, options);
            askClips(answers, molecule, options);
        }
    }
}
