#include "Describe.h"

#include <array>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace faults {

namespace {

/// The masses of formulas, among them unknown elements and losses.
std::string describeMasses(const chem::ChemicalFactory& factory)
{
    std::string text;
    for (const QString& formula : {u"C6H12O6"_s, u"H-2O-1S2"_s, u"ENaXx2"_s})
        text += describe(factory.constructMolecule(formula));
    return text;
}

std::string describePeptides(const chem::ChemicalFactory& factory)
{
    QList<QSharedPointer<const chem::AminoAcid>> residues;
    chem::NamedMolecule left;
    chem::NamedMolecule right;
    factory.parseAminoAcidSequence(u"ACHJ"_s, &residues, &left, &right);
    return describe(
        std::tuple(residues, left, right, factory.constructLinearPeptideComplex(u"ACJ"_s)));
}

std::string describeOligos(const chem::ChemicalFactory& factory)
{
    std::string text;
    for (const QString& oligo :
         {u"{rA*C}"_s, u"rZ*A"_s, u"A!C"_s, u"bA"_s, u"dT-3.5"_s, u"A[x]"_s}) {
        QList<QSharedPointer<const chem::Nucleotide>> nucleotides;
        chem::NamedMolecule left;
        chem::NamedMolecule right;
        const bool isRead = factory.parseNucleotideSequence(oligo, &nucleotides, &left, &right);
        text += describe(std::tuple(factory.isValidOligoSequence(oligo), isRead, nucleotides, left,
                                    right, factory.constructLinearOligoComplex(oligo)));
    }
    return text + describe(factory.generateFullOligoRegex());
}

/// The keys of all dictionaries, also of those that no reader reads.
std::string describeDictionaries(const chem::ChemicalFactory& factory)
{
    struct Open : public chem::ChemicalFactory
    {
        using ChemicalFactory::buildingBlocks;
    };
    std::string text;
    const auto dictionaries = factory.*(&Open::buildingBlocks);
    for (auto dictionary = dictionaries.cbegin(); dictionary != dictionaries.cend(); ++dictionary)
        text += describe(int(dictionary.key())) + describe(dictionary->keys());
    return text;
}

std::string describeGlycans(const chem::ChemicalFactory& factory)
{
    return describe(std::tuple(factory.isValidGlycanComposition(u"Hex(2)Na(1)"_s),
                               factory.constructGlycanModification(u"Hex(2)HexNAc(1)"_s)));
}

std::string describeSites(const chem::MoleculeComplex& complex)
{
    std::string text;
    for (const auto& sites : complex.sites) {
        for (const auto& site : sites)
            text += describe(int(site->type)) + describe(site->delta) + describe(site->lost);
    }
    return text;
}

} // namespace

std::string describe(bool value)
{
    return value ? "true" : "false";
}

std::string describe(int value)
{
    return std::to_string(value);
}

std::string describe(double value)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%a", value);
    return text.data();
}

std::string describe(const QString& value)
{
    return '"' + value.toStdString() + '"';
}

std::string describe(const QPointF& value)
{
    return describe(std::tuple(value.x(), value.y()));
}

std::string describe(const QRegularExpression& value)
{
    return describe(std::tuple(value.pattern(), value.isValid()));
}

std::string describe(const chem::ChemicalFormula& value)
{
    std::string text;
    for (auto entry = value.elementCountMap().cbegin(); entry != value.elementCountMap().cend();
         ++entry)
        text += describe(entry.key()) + describe(entry.value());
    return text;
}

std::string describe(const chem::Molecule& value)
{
    return describe(std::tuple(value.formula(), value.averageMass(), value.monoMass()));
}

std::string describe(const chem::NamedMolecule& value)
{
    return describe(std::tuple(chem::Molecule(value), value.name, value.code));
}

std::string describe(const chem::MoleculeComplex& value)
{
    return describe(chem::NamedMolecule(value)) + describe(value.residues) + describeSites(value);
}

std::string describe(const chem::Fragment& value)
{
    return describe(std::tuple(chem::Molecule(value), value.typeLabel, int(value.residues.size()),
                               int(value.sites.size())));
}

std::string describe(const chem::SimpleFragment& value)
{
    return describe(std::tuple(value.averageMass, value.monoMass, value.sequence, int(value.type),
                               value.position));
}

std::string describe(const chem::Chain& value)
{
    const chem::ParentChainLocus& locus = value.parentLocus();
    return describe(std::tuple(value.name(), value.code(), value.residues(), int(value.type()),
                               locus.label, locus.chain, locus.start, locus.end));
}

std::string describe(const chem::Link& value)
{
    const auto [first, second] = value.connection();
    return describe(
        std::tuple(value.entity(), first.first, first.second, second.first, second.second));
}

std::string describe(const chem::Modification& value)
{
    std::string text = describe(value.entity());
    for (const auto& [chain, residue] : value.possibleChainLocations())
        text += describe(std::tuple(chain, residue));
    return text;
}

std::string describe(const chem::TransformationEntity& value)
{
    chem::TransformationEntity entry = value;
    return describe(std::tuple(int(value.type()), entry.original()));
}

std::string describe(const chem::MoleculeEntity& value)
{
    return describe(std::tuple(value.averageMass(), value.monoMass(), value.formula(),
                               int(value.type()), value.sequence(), value.name(), value.code(),
                               value.chains(), value.links(), value.modifications())) +
           describe(value.transformations());
}

std::string describe(const chem::ObservedMassEntity& value)
{
    return describe(std::tuple(value.mass(), value.monoMass()));
}

std::string describe(const chem::Match& value)
{
    return describe(std::tuple(value.entity, value.observedMass));
}

std::string describe(const chem::ClipOptions& value)
{
    std::string text = describe(int(value.clipType()));
    for (const auto& rule : value.residueBeforeAfterVector())
        text += describe(std::tuple(rule.before, rule.after));
    return text;
}

std::string describe(const chem::ChemicalFactory& value)
{
    return describeDictionaries(value) + describeMasses(value) + describePeptides(value) +
           describeOligos(value) + describeGlycans(value);
}

} // namespace faults
