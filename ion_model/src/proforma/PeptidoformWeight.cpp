#include "ProForma.h"
#include "masses/NaturalAtoms.h"
#include "proforma/IonLayout.h"
#include "proforma/PartWeigher.h"

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

using Failure = std::optional<Error>;

Error tooLarge(TextPosition position, qsizetype chain)
{
    return {u"this makes more than 2147483647 atoms or charges of a kind, too large"_s,
            position.index, chain};
}

/// Adds up the parts of an ion.
class IonSum
{
public:
    IonSum(const PeptidoformIon& ion, const IonLayout& layout, const PartWeigher& weigher)
        : m_ion(ion)
        , m_layout(layout)
        , m_water(weigher.atoms(Composition::read(u"H2O").value()).value())
    {
    }

    Parsed<PeptidoformWeight> weigh()
    {
        Failure failure = addChains();
        if (!failure)
            failure = addParts();
        if (!failure)
            failure = addCarriers();
        if (failure)
            return *std::move(failure);
        if (std::abs(m_charge) > std::numeric_limits<int>::max())
            return tooLarge({}, 0);
        m_weight.charge = int(m_charge);
        if (m_charge != 0)
            m_weight.mz = (1.0 / double(std::abs(m_charge))) * (m_weight.masses + m_carrierMasses);
        m_weight.composition =
            m_bare ? Parsed<Composition>(*std::move(m_bare)) : std::move(m_composition);
        return std::move(m_weight);
    }

private:
    Failure addChains()
    {
        for (std::size_t i = 0; i < m_ion.chains.size(); ++i) {
            const PeptidoformChain& chain = m_ion.chains[i];
            if (!add(m_water, 1, {}, qsizetype(i)))
                return tooLarge({}, qsizetype(i));
            std::array<qint64, 26> counts{};
            for (const QChar letter : chain.residues)
                ++counts[std::size_t(letter.unicode() - u'A')];
            for (std::size_t letter = 0; letter < counts.size(); ++letter) {
                if (counts[letter] == 0)
                    continue;
                const QChar residue(char16_t(u'A' + letter));
                const qsizetype first = chain.residues.indexOf(residue);
                const TextPosition position{chain.positions.of(first)};
                if (!add(m_layout.residue(residue), counts[letter], position, qsizetype(i)))
                    return tooLarge(position, qsizetype(i));
            }
        }
        return {};
    }

    Failure addParts()
    {
        for (const LaidPart& part : m_layout.parts()) {
            if (!add(part.weight, part.count, part.position, qsizetype(part.chain)))
                return tooLarge(part.position, qsizetype(part.chain));
        }
        for (const LaidLink& link : m_layout.links()) {
            if (!add(link.weight, 1, link.position, 0))
                return tooLarge(link.position, 0);
        }
        return {};
    }

    /// Charge carriers have natural isotopes and are no part of the molecule.
    Failure addCarriers()
    {
        if (m_ion.protons)
            carry(naturalAtoms().of({1, 0}), 1, *m_ion.protons);
        for (const ChargeCarrier& carrier : m_ion.carriers) {
            const Parsed<Masses> masses = naturalAtoms().weigh(carrier.formula.composition);
            if (!masses)
                return Error{masses.error().message, carrier.position.index};
            carry(*masses, carrier.formula.charge, carrier.count);
        }
        return {};
    }

    void carry(const Masses& masses, int charge, int count)
    {
        const double electrons = charge * electronMass;
        m_carrierMasses += double(count) * (masses - Masses{electrons, electrons});
        m_charge += qint64(charge) * count;
    }

    bool add(const PartWeight& part, qint64 count, TextPosition position, qsizetype chain)
    {
        m_weight.masses += double(count) * part.masses;
        m_charge += part.charge * count;
        if (part.isBare && count != 0 && !m_bare)
            m_bare =
                Error{u"this is a bare mass, whose atoms are unknown"_s, position.index, chain};
        return m_composition.add(part.composition, count);
    }

    const PeptidoformIon& m_ion;
    const IonLayout& m_layout;
    PartWeight m_water;
    PeptidoformWeight m_weight;
    Composition m_composition;
    Failure m_bare; ///< The first part without atoms.
    qint64 m_charge = 0;
    Masses m_carrierMasses;
};

} // namespace

Parsed<PeptidoformWeight> Peptidoform::weigh(qsizetype ion, const ResidueTable& residues,
                                             const ModificationTable& modifications) const
{
    const PartWeigher weigher(residues, modifications, isotopes);
    const Parsed<IonLayout> layout = IonLayout::of(*this, ion, weigher);
    if (!layout)
        return layout.error();
    return IonSum(ions[std::size_t(ion)], *layout, weigher).weigh();
}

} // namespace ions
