#include "Backbone.h"
#include "masses/EntityMasses.h"
#include "tables/NucleotideContent.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace ions {

namespace {

/// Where the first number starts: only numbers that stand for a base have digits.
qsizetype numberPosition(QStringView text)
{
    const auto isDigit = [](QChar c) {
        return c >= u'0' && c <= u'9';
    };
    return std::find_if(text.begin(), text.end(), isDigit) - text.begin();
}

/// A number in place of a base names a mass, not a nucleotide.
bool isNumber(const chem::Nucleotide& nucleotide)
{
    return nucleotide.nucleobase.formula().isEmpty();
}

void append(const Masses& sugar, const Masses& base, QChar letter, BackboneChain* chain)
{
    chain->units.push_back(sugar + base);
    chain->bases.push_back(base);
    chain->linkages.push_back({});
    chain->letters.append(letter);
}

/// Lays out a text that is one of the letters alone.
void layOut(QStringView text, const OligoLetters& letters, BackboneChain* chain)
{
    using Role = OligoLetters::Role;
    chain->leftGroup = letters.unmarkedFivePrime();
    chain->rightGroup = letters.unmarkedThreePrime();
    const Masses* sugar = &letters.unnamedSugar();
    Role before = Role::None; // linkages, sugars and bases alone
    for (const QChar letter : text) {
        const Masses& masses = letters.masses(letter);
        const Role role = letters.role(letter);
        if (role == Role::FivePrimeMark) {
            chain->leftGroup = masses;
            continue;
        }
        if (role == Role::ThreePrimeMark) {
            chain->rightGroup = masses;
            continue;
        }
        if (before == Role::Base && role != Role::Linkage)
            chain->linkages.back() = letters.unnamedLinkage();
        if (role == Role::Linkage)
            chain->linkages.back() += masses;
        else if (role == Role::Sugar)
            sugar = &masses;
        else
            append(*std::exchange(sugar, &letters.unnamedSugar()), masses, letter, chain);
        before = role;
    }
}

} // namespace

Parsed<Backbone> Backbone::oligonucleotide(QStringView text, const chem::ChemicalFactory& factory)
{
    return oligonucleotide(text, NucleotideTable(factory));
}

Parsed<Backbone> Backbone::oligonucleotide(QStringView text, const NucleotideTable& nucleotides)
{
    Backbone backbone;
    if (auto error = backbone.assignOligonucleotide(text, nucleotides))
        return *std::move(error);
    return backbone;
}

std::optional<Error> Backbone::assignOligonucleotide(QStringView text,
                                                     const NucleotideTable& nucleotides)
{
    const NucleotideTable::Content& content = *nucleotides.m_content;
    BackboneChain& chain = becomeChain(Polymer::Oligonucleotide, content.breaks);
    chain.units.clear();
    chain.letters.resize(0);
    const OligoLetters::Reading reading = content.letters.read(text);
    std::optional<Error> refusal;
    if (reading.isWhole && content.letters.isPlain())
        layOut(text, content.letters, &chain);
    else if (refusal = content.refusal(text, reading); !refusal)
        refusal = layOutByFactory(text, nucleotides, &chain);
    if (refusal) {
        m_chains.clear();
        return refusal;
    }
    chain.leftGroup -= m_breaks.hydrogen;
    chain.rightGroup -= m_breaks.water - m_breaks.hydrogen;
    sumUp();
    return {};
}

std::optional<Error> Backbone::layOutByFactory(QStringView text, const NucleotideTable& nucleotides,
                                               BackboneChain* chain)
{
    const auto read = nucleotides.m_content->readByFactory(text);
    if (!read)
        return read.error();
    chain->leftGroup = massesOf(read->fivePrime);
    chain->rightGroup = massesOf(read->threePrime);
    for (const auto& nucleotide : read->nucleotides) {
        if (isNumber(*nucleotide))
            return Error{u"expected a base, not the mass of one"_s, numberPosition(text)};
        const QString& code = nucleotide->nucleobase.code;
        append(massesOf(nucleotide->ribose), massesOf(nucleotide->nucleobase),
               code.isEmpty() ? QChar() : code.front(), chain);
        chain->linkages.back() = massesOf(nucleotide->phosphate);
    }
    return {};
}

} // namespace ions
