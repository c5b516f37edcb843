#pragma once

#include "Parsed.h"
#include "ProForma.h"
#include "proforma/PartWeigher.h"

#include <QString>

#include <array>
#include <optional>
#include <utility>
#include <vector>

namespace ions {

/// What a part of a chain sits on.
enum class LaidPlace { Unit, LeftEnd, RightEnd, Open, Labile };

/// Brackets that hold a label.
struct LaidMention
{
    std::size_t chain = 0;
    LaidPlace place = LaidPlace::Unit;
    qsizetype unit = 0; ///< Where they are; of several units the first.
    const Modification* modification = nullptr;
    bool isEverywhere = false; ///< Whether they mean all of the chain.
};

/// A part that sits on a chain, and where.
struct LaidPart
{
    LaidPlace place = LaidPlace::Unit;
    std::size_t chain = 0;
    qsizetype unit = 0;           ///< Of a unit; 0 for anything else.
    std::vector<qsizetype> units; ///< Where an open part may sit, ascending.
    PartWeight weight;
    int count = 1;                              ///< How many of them there are.
    TextPosition position;                      ///< In the text.
    const Modification* modification = nullptr; ///< What describes it.
    bool isEverywhere = false;                  ///< Open: whether it may sit all over the chain.
    std::vector<LaidMention> mentions;          ///< Open: where its label stands, if it has one.
};

/// A bridge, and the units that it joins, by chain and unit in the order of the text.
struct LaidLink
{
    PartWeight weight;
    std::vector<std::pair<std::size_t, qsizetype>> sites;
    TextPosition position;                      ///< Of its description.
    const Modification* modification = nullptr; ///< What describes it.
    std::vector<LaidMention> mentions;          ///< Where its label stands.
};

/// All parts of one peptidoform ion, weighed, each once and where it sits. Weighing sums them up,
/// fragments and molecules arrange them. It points into the peptidoform that it was made of.
class IonLayout
{
public:
    /// Weighs the parts of one ion, counted from 0, by the rules for all of them.
    static Parsed<IonLayout> of(const Peptidoform& peptidoform, qsizetype ion,
                                const PartWeigher& weigher);

    /// Why open parts cannot be arranged one by one, if so: one of them finds no place, or there
    /// are more than 1,000.
    std::optional<Error> openRefusal() const;

    const std::vector<LaidPart>& parts() const { return m_parts; }
    const std::vector<LaidLink>& links() const { return m_links; }
    /// The weight of a residue that the ion has.
    const PartWeight& residue(QChar letter) const
    {
        return m_residues[std::size_t(letter.unicode() - u'A')];
    }

private:
    friend class LayoutBuilder;

    std::vector<LaidPart> m_parts;
    std::vector<LaidLink> m_links;
    std::array<PartWeight, 26> m_residues; ///< By capital letter.
};

} // namespace ions
