// The tables of labels and of the building blocks that a new factory has, as its readers know them.

#include "Recipes.h"

#include <QMetaEnum>

namespace {

QString row(const QString& key, const QString& name, const Molecule& molecule)
{
    return key.leftJustified(8) + name.leftJustified(30) +
           molecule.formula().toString().leftJustified(12) +
           QString::number(molecule.monoMass(), 'f', 4).rightJustified(9) + u'\n';
}

/// Every character of ASCII that can be seen.
QString visibleCharacters()
{
    QString characters;
    for (char16_t character = u'!'; character <= u'~'; ++character)
        characters.append(character);
    return characters;
}

/// What a text is read as; without nucleotides if it is outside the grammar.
struct Reading
{
    explicit Reading(const QString& text)
    {
        defaultChemicalFactory()->parseNucleotideSequence(text, &nucleotides, &fivePrime,
                                                          &threePrime);
    }

    QList<QSharedPointer<const Nucleotide>> nucleotides;
    NamedMolecule fivePrime;
    NamedMolecule threePrime;
};

/// Prints the part of a nucleotide that each character names in a text.
template <typename Part>
void printParts(const QString& heading, const QString& text, Part part, QTextStream& out)
{
    out << heading << '\n';
    for (const QChar character : visibleCharacters()) {
        const Reading reading(QString(text).replace(u'?', character));
        if (reading.nucleotides.isEmpty())
            continue;
        const NamedMolecule block = part(reading);
        if (block.code == character && !block.formula().isEmpty()) // a digit is a bare mass
            out << row(character, block.name, block);
    }
}

/// Prints the ends that opening or closing marks name.
template <typename Part>
void printEnds(const QString& marks, const QString& text, Part part, QTextStream& out)
{
    for (const QChar mark : marks) {
        const NamedMolecule end = part(Reading(QString(text).replace(u'?', mark)));
        out << row(mark, end.name, end);
    }
}

} // namespace

void ionLabels(QTextStream& out)
{
    const QMetaEnum types = QMetaEnum::fromType<FragmentType>();
    for (int i = 0; i < types.keyCount(); ++i) {
        const auto type = static_cast<FragmentType>(types.value(i));
        out << QString::number(types.value(i)).leftJustified(4)
            << QString::fromLatin1(types.key(i)).leftJustified(15)
            << ChemicalFactory::typeToString(type) << '\n';
    }
}

void aminoAcids(QTextStream& out)
{
    QList<QSharedPointer<const AminoAcid>> residues;
    NamedMolecule nTerminal;
    NamedMolecule cTerminal;
    defaultChemicalFactory()->parseAminoAcidSequence(visibleCharacters(), &residues, &nTerminal,
                                                     &cTerminal);
    for (const auto& residue : std::as_const(residues)) {
        if (!residue->code.isEmpty())
            out << row(residue->code, residue->name, *residue);
    }
    out << row(nTerminal.code, nTerminal.name, nTerminal)
        << row(cTerminal.code, cTerminal.name, cTerminal);
}

void glycanResidues(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    for (const QString& name : {u"Hex"_s, u"dHex"_s, u"Fuc"_s, u"HexNAc"_s, u"Pent"_s, u"NeuAc"_s,
                                u"NeuGc"_s, u"Sodium"_s, u"Na"_s})
        out << row(name, QString(), factory->constructGlycanModification(name + u"(1)"_s));
}

void partsOfNucleotides(QTextStream& out)
{
    printParts(
        u"bases"_s, u"?"_s, [](const Reading& r) { return r.nucleotides.first()->nucleobase; },
        out);
    printParts(
        u"sugars"_s, u"?A"_s, [](const Reading& r) { return r.nucleotides.first()->ribose; }, out);
    printParts(
        u"linkages"_s, u"A?A"_s, [](const Reading& r) { return r.nucleotides.first()->phosphate; },
        out);
    const Nucleotide plain = *Reading(u"AA"_s).nucleotides.first();
    out << "where none is written\n"
        << row(QString(), plain.ribose.name, plain.ribose)
        << row(QString(), plain.phosphate.name, plain.phosphate) << "ends\n";
    printEnds(
        u"[{"_s, u"?A"_s, [](const Reading& r) { return r.fivePrime; }, out);
    printEnds(
        u"]}"_s, u"A?"_s, [](const Reading& r) { return r.threePrime; }, out);
}
