#include "fragments/LossHolders.h"

#include <QStringView>

#include <algorithm>
#include <iterator>

namespace ions {

namespace {

bool isOneOf(QStringView letters, QChar letter)
{
    return std::find(letters.begin(), letters.end(), letter) != letters.end();
}

} // namespace

LossHolders::LossHolders(const Backbone& backbone, const LossTable& losses)
    : m_backbone(backbone)
    , m_losses(losses)
{
}

NumberSpan LossHolders::numbers(std::size_t set, const BackboneChain& chain, const UnitRange& range,
                                const OpenVariant& variant, const std::vector<qsizetype>& others,
                                NumberSpan numbers) const
{
    const std::vector<int>& times = m_losses.sets()[set].times;
    for (std::size_t i = 0; !numbers.isEmpty() && i < times.size(); ++i) {
        const LossKind& loss = m_losses.kinds()[i];
        if (times[i] == 0 || loss.isOfAny())
            continue;
        int held = inChains(loss, others) +
                   inUnits(loss, chain, range.begin(numbers.first), range.end(numbers.first));
        if (loss.isOfGroup)
            held += holdersAmongOpen(chain, variant, loss.loss);
        while (held < times[i] && !numbers.isEmpty()) {
            const qsizetype unit = range.newUnit(++numbers.first);
            if (!numbers.isEmpty())
                held += inUnits(loss, chain, unit, unit + 1);
        }
    }
    return numbers;
}

bool LossHolders::wholeShows(std::size_t set) const
{
    const std::vector<int>& times = m_losses.sets()[set].times;
    for (std::size_t i = 0; i < times.size(); ++i) {
        const LossKind& loss = m_losses.kinds()[i];
        if (times[i] == 0 || loss.isOfAny())
            continue;
        int held = 0;
        for (const BackboneChain& chain : m_backbone.chains())
            held += inChain(loss, chain);
        if (held < times[i])
            return false;
    }
    return true;
}

/// How many units from `begin` to before `end` can show a loss: by their letter or by a group.
int LossHolders::inUnits(const LossKind& loss, const BackboneChain& chain, qsizetype begin,
                         qsizetype end) const
{
    const QStringView letters = QStringView(chain.letters).sliced(begin, end - begin);
    auto count = std::count_if(letters.begin(), letters.end(),
                               [&](QChar letter) { return isOneOf(loss.residues, letter); });
    if (loss.isOfGroup) {
        count +=
            std::count_if(chain.groups.begin(), chain.groups.end(), [&](const PlacedGroup& group) {
                return group.unit >= begin && group.unit < end &&
                       !isOneOf(loss.residues, chain.letters[group.unit]) &&
                       hasLoss(group.group, loss.loss);
            });
    }
    return int(count);
}

/// The same for a whole chain, with its open groups.
int LossHolders::inChain(const LossKind& loss, const BackboneChain& chain) const
{
    const int held = inUnits(loss, chain, 0, std::ssize(chain.units));
    if (!loss.isOfGroup)
        return held;
    return held + int(std::count_if(chain.open.begin(), chain.open.end(), [&](const auto& open) {
               return hasLoss(open.group, loss.loss);
           }));
}

int LossHolders::inChains(const LossKind& loss, const std::vector<qsizetype>& chains) const
{
    int sum = 0;
    for (const qsizetype index : chains)
        sum += inChain(loss, m_backbone.chains()[std::size_t(index)]);
    return sum;
}

} // namespace ions
