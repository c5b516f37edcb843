#include "Backbone.h"
#include "masses/FactoryTables.h"
#include <zel_chemical_model/ChemicalFactory.h>
#include <zel_chemical_model/LinearComplex.h>

#include <QList>
#include <QSharedPointer>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

using Nucleotides = QList<QSharedPointer<const chem::Nucleotide>>;

Masses massesOf(const chem::Molecule& molecule)
{
    return {molecule.monoMass(), molecule.averageMass()};
}

/// The characters that the dictionaries of oligonucleotides spell with.
QString alphabetOf(const chem::ChemicalFactory& factory)
{
    const FactoryTables tables(factory);
    QString alphabet;
    for (const auto type :
         {FactoryTables::NucleobaseBlock, FactoryTables::RiboseBlock, FactoryTables::PhosphateBlock,
          FactoryTables::FivePrimeTerminalBlock, FactoryTables::ThreePrimeTerminalBlock}) {
        for (const QString& key : tables.entries(type).keys())
            alphabet += key;
    }
    return alphabet;
}

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

/// The first character that no oligonucleotide has, or the end where only the order is wrong.
qsizetype refusedPosition(const QString& text, const chem::ChemicalFactory& factory)
{
    const QString alphabet = alphabetOf(factory);
    const auto refused = std::find_if_not(text.begin(), text.end(), [&alphabet](QChar c) {
        return alphabet.contains(c) || isDigit(c);
    });
    return refused - text.begin();
}

/// Where the first number starts: only numbers that stand for a base have digits.
qsizetype numberPosition(const QString& text)
{
    return std::find_if(text.begin(), text.end(), isDigit) - text.begin();
}

/// A number in place of a base names a mass, not a nucleotide.
bool isNumber(const chem::Nucleotide& nucleotide)
{
    return nucleotide.nucleobase.formula().isEmpty();
}

BackboneChain chainOf(const Nucleotides& nucleotides)
{
    BackboneChain chain;
    chain.polymer = Polymer::Oligonucleotide;
    for (const auto& nucleotide : nucleotides) {
        const Masses base = massesOf(nucleotide->nucleobase);
        chain.units.push_back(base + massesOf(nucleotide->ribose));
        chain.bases.push_back(base);
        chain.linkages.push_back(massesOf(nucleotide->phosphate));
        const QString& code = nucleotide->nucleobase.code;
        chain.letters.append(code.isEmpty() ? QChar() : code.front());
    }
    return chain;
}

} // namespace

Parsed<Backbone> Backbone::oligonucleotide(QStringView text, const chem::ChemicalFactory& factory)
{
    const QString sequence = text.toString();
    Nucleotides nucleotides;
    chem::NamedMolecule fivePrime;
    chem::NamedMolecule threePrime;
    if (!factory.parseNucleotideSequence(sequence, &nucleotides, &fivePrime, &threePrime))
        return Error{u"expected a nucleotide"_s, refusedPosition(sequence, factory)};
    BackboneChain chain = chainOf(nucleotides);
    for (const auto& nucleotide : nucleotides) {
        if (isNumber(*nucleotide))
            return Error{u"expected a base, not the mass of one"_s, numberPosition(sequence)};
    }
    const BreakMasses breaks = BreakMasses::of(AtomMasses(factory));
    chain.leftGroup = massesOf(fivePrime) - breaks.hydrogen;
    chain.rightGroup = massesOf(threePrime) - (breaks.water - breaks.hydrogen);
    return ofChains({std::move(chain)}, {}, breaks);
}

} // namespace ions
