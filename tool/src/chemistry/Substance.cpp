#include "chemistry/Substance.h"

#include <ProForma.h>

#include <algorithm>
#include <functional>
#include <numeric>
#include <utility>

using namespace Qt::StringLiterals;

namespace tool {

using ions::Composition;
using ions::Error;
using ions::Parsed;
using ions::Peptidoform;
using ions::PeptidoformIon;

namespace {

Composition water()
{
    return Composition::read(u"H2O").value();
}

// Peptidoforms

int chargeOf(const ions::ChargeCarrier& carrier)
{
    return carrier.count * carrier.formula.charge;
}

/// The charge of an ion's carriers, which weighing has found to fit.
int carrierCharge(const PeptidoformIon& ion)
{
    return std::transform_reduce(ion.carriers.begin(), ion.carriers.end(), ion.protons.value_or(0),
                                 std::plus(), chargeOf);
}

/// What the carriers of an ion are made of. Nothing is lost: weighing has found that they fit.
Composition carrierAtoms(const PeptidoformIon& ion)
{
    Composition atoms;
    bool fits = atoms.add(ions::Atom{1}, ion.protons.value_or(0));
    for (const ions::ChargeCarrier& carrier : ion.carriers)
        fits = atoms.add(carrier.formula.composition, carrier.count) && fits;
    return fits ? atoms : Composition();
}

Parsed<Substance> weighIon(const Peptidoform& peptidoform, std::size_t index,
                           const Chemistry& chemistry)
{
    const auto weight =
        peptidoform.weigh(qsizetype(index), chemistry.residues, chemistry.modifications);
    if (!weight)
        return weight.error();
    const PeptidoformIon& ion = peptidoform.ions[index];
    Substance substance;
    substance.masses = weight->masses;
    substance.composition = weight->composition;
    substance.charge = weight->charge;
    substance.ownCharge = weight->charge - carrierCharge(ion);
    substance.carriers = carrierAtoms(ion);
    if (weight->charge != 0)
        substance.mz = weight->mz.monoisotopic;
    return substance;
}

Parsed<std::vector<Substance>> readPeptidoform(const QString& text, const Chemistry& chemistry)
{
    const auto peptidoform = Peptidoform::read(text);
    if (!peptidoform)
        return peptidoform.error();
    std::vector<Substance> substances;
    for (std::size_t i = 0; i < peptidoform->ions.size(); ++i) {
        Parsed<Substance> substance = weighIon(*peptidoform, i, chemistry);
        if (!substance)
            return substance.error();
        substances.push_back(std::move(substance).value());
    }
    return substances;
}

Parsed<LaidOut> layOutPeptidoform(const QString& text, const Chemistry& chemistry)
{
    const auto peptidoform = Peptidoform::read(text);
    if (!peptidoform)
        return peptidoform.error();
    if (peptidoform->ions.size() != 1)
        return Error{u"expected one peptidoform ion, without '+'"_s, 0};
    auto backbone = peptidoform->backbone(0, chemistry.residues, chemistry.modifications);
    if (!backbone)
        return backbone.error();
    return LaidOut{*std::move(backbone), peptidoform->isotopes};
}

// Glycans, which are read as the tag of a residue

constexpr QStringView tagStart = u"A[Glycan:";

Parsed<Peptidoform> readGlycanTag(const QString& text)
{
    const auto mark = std::find_if(text.begin(), text.end(), [](QChar character) {
        return QStringView(u"|#[]").contains(character);
    });
    if (mark != text.end())
        return Error{u"expected monosaccharides and their counts only"_s, mark - text.begin()};
    Parsed<Peptidoform> read = Peptidoform::read(QString(tagStart + text + u']'));
    if (read)
        return read;
    Error error = read.error();
    error.position = std::clamp(error.position - tagStart.size(), qsizetype(0), text.size());
    return error;
}

const ions::Tag& glycanTag(const Peptidoform& peptidoform)
{
    return peptidoform.ions[0].chains[0].modifications[0].modification.tags[0];
}

/// A free glycan: its residues and one water.
Parsed<Composition> glycanAtoms(const ions::Tag& tag, const Chemistry& chemistry)
{
    Composition atoms = water();
    for (const ions::GlycanPart& part : tag.glycan) {
        if (part.formula.charge != 0)
            return Error{u"expected a glycan without charges"_s, 0};
        const ions::MoleculePart* known = chemistry.residues.monosaccharide(part.name);
        if (!part.name.isEmpty() && !known)
            return Error{u"expected a monosaccharide with a mass, not "_s + part.name, 0};
        if (!atoms.add(known ? known->composition : part.formula.composition, part.count))
            return Error{u"this makes more than 2147483647 atoms of a kind, too large"_s, 0};
    }
    return atoms;
}

Parsed<Composition> readGlycan(const QString& text, const Chemistry& chemistry)
{
    const auto read = readGlycanTag(text);
    return read ? glycanAtoms(glycanTag(*read), chemistry) : read.error();
}

Parsed<QString> canonicalGlycan(const QString& text)
{
    const auto read = readGlycanTag(text);
    if (!read)
        return read.error();
    return read->toString().sliced(tagStart.size()).chopped(1);
}

// The others

Parsed<Composition> oligoAtoms(const QString& text, const Chemistry& chemistry)
{
    const auto complex = chemistry.factory->constructLinearOligoComplex(text);
    if (!complex)
        return Error{u"expected an oligonucleotide"_s, 0};
    return Composition::fromFormula(complex->formula());
}

Parsed<std::vector<Substance>> readOligo(const QString& text, const Chemistry& chemistry)
{
    const auto masses = chemistry.nucleotides.oligonucleotide(text);
    if (!masses)
        return masses.error();
    Substance substance;
    substance.masses = *masses;
    substance.composition = oligoAtoms(text, chemistry);
    return std::vector{std::move(substance)};
}

Parsed<std::vector<Substance>> weighAtoms(const Parsed<Composition>& atoms,
                                          const Chemistry& chemistry)
{
    if (!atoms)
        return atoms.error();
    const auto masses = chemistry.atoms().weigh(*atoms);
    if (!masses)
        return Error{u"expected isotopes whose masses are known"_s, 0};
    Substance substance;
    substance.masses = *masses;
    substance.composition = atoms;
    return std::vector{std::move(substance)};
}

template <typename T>
Parsed<QString> writtenBack(const Parsed<T>& read)
{
    return read ? Parsed<QString>(read->toString()) : read.error();
}

} // namespace

Parsed<QString> canonicalText(const QString& text, Notation notation, const Chemistry& chemistry)
{
    switch (notation) {
    case Notation::ProForma:
        return writtenBack(Peptidoform::read(text));
    case Notation::Formula:
        return writtenBack(Composition::read(text));
    case Notation::Glycan:
        return canonicalGlycan(text);
    case Notation::Oligo:
        break;
    }
    const auto masses = chemistry.nucleotides.oligonucleotide(text);
    return masses ? Parsed<QString>(text) : masses.error();
}

Parsed<std::vector<Substance>> readSubstances(const QString& text, Notation notation,
                                              const Chemistry& chemistry)
{
    switch (notation) {
    case Notation::ProForma:
        return readPeptidoform(text, chemistry);
    case Notation::Formula:
        return weighAtoms(Composition::read(text), chemistry);
    case Notation::Glycan:
        return weighAtoms(readGlycan(text, chemistry), chemistry);
    case Notation::Oligo:
        break;
    }
    return readOligo(text, chemistry);
}

Parsed<Substance> readSubstance(const QString& text, Notation notation, const Chemistry& chemistry)
{
    auto substances = readSubstances(text, notation, chemistry);
    if (!substances)
        return substances.error();
    if (substances->size() != 1)
        return Error{u"expected one peptidoform ion, without '+'"_s, 0};
    return substances->front();
}

Parsed<LaidOut> layOut(const QString& text, Notation notation, const Chemistry& chemistry)
{
    if (notation == Notation::ProForma)
        return layOutPeptidoform(text, chemistry);
    if (notation != Notation::Oligo)
        return Error{u"expected a peptide or an oligonucleotide, which have fragments"_s, 0};
    auto backbone = ions::Backbone::oligonucleotide(text, chemistry.nucleotides);
    if (!backbone)
        return backbone.error();
    return LaidOut{*std::move(backbone), {}};
}

} // namespace tool
