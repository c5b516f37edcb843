#include "NucleotideTable.h"

#include "masses/EntityMasses.h"
#include "tables/NucleotideContent.h"

using namespace Qt::StringLiterals;

namespace ions {

namespace {

Error refusalAt(qsizetype position)
{
    return Error{u"expected a nucleotide"_s, position};
}

/// What the letters of the dictionaries leave to the factory: numbers and the line feed that may
/// end a text.
bool isOutsideLetters(QChar c)
{
    return (c >= u'0' && c <= u'9') || c == u'+' || c == u'-' || c == u'.' || c == u'\n';
}

} // namespace

NucleotideTable::Content::Content(const chem::ChemicalFactory& from)
    : factory(from)
    , letters(factory)
    , breaks(BreakMasses::of(AtomMasses(factory)))
{
}

std::optional<Error> NucleotideTable::Content::refusal(QStringView text,
                                                       const OligoLetters::Reading& reading) const
{
    const qsizetype end = reading.end;
    if (!letters.isPlain() || (end < text.size() && isOutsideLetters(text[end])))
        return {};
    return refusalAt(end);
}

Parsed<NucleotideTable::Content::Text>
NucleotideTable::Content::readByFactory(QStringView text) const
{
    Text read;
    if (!factory.parseNucleotideSequence(text.toString(), &read.nucleotides, &read.fivePrime,
                                         &read.threePrime))
        return refusalAt(refusedPosition(text));
    return read;
}

/// Whether some text starts so. A number may stand wherever a text goes on, so its last digit
/// tells.
bool NucleotideTable::Content::canGoOn(QStringView text) const
{
    Text read;
    return factory.parseNucleotideSequence(text + u"0"_s, &read.nucleotides, &read.fivePrime,
                                           &read.threePrime) ||
           factory.parseNucleotideSequence(text.toString(), &read.nucleotides, &read.fivePrime,
                                           &read.threePrime);
}

/// The first character that no text goes on with: of the longest beginning that can go on.
qsizetype NucleotideTable::Content::refusedPosition(QStringView text) const
{
    qsizetype good = 0;
    qsizetype bad = text.size() + 1;
    while (good + 1 < bad) {
        const qsizetype middle = good + (bad - good) / 2;
        (canGoOn(text.first(middle)) ? good : bad) = middle;
    }
    return good;
}

NucleotideTable::NucleotideTable()
    : NucleotideTable(*chem::defaultChemicalFactory())
{
}

NucleotideTable::NucleotideTable(const chem::ChemicalFactory& factory)
    : m_content(std::make_shared<const Content>(factory))
{
}

Parsed<Masses> NucleotideTable::oligonucleotide(QStringView text) const
{
    const OligoLetters::Reading reading = m_content->letters.read(text);
    if (reading.isWhole && m_content->letters.isPlain())
        return reading.masses;
    if (auto error = m_content->refusal(text, reading))
        return *std::move(error);
    const Parsed<Content::Text> read = m_content->readByFactory(text);
    if (!read)
        return read.error();
    MassSum sum{massesOf(read->fivePrime) + massesOf(read->threePrime), {}};
    for (const auto& nucleotide : read->nucleotides)
        sum.add(massesOf(*nucleotide));
    return sum.value();
}

const BreakMasses& NucleotideTable::breaks() const
{
    return m_content->breaks;
}

} // namespace ions
