#pragma once

#include "NaturalFactory.h"
#include "SameMolecules.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

/// \file
/// What reading oligonucleotide text gives, and a second way to it.

namespace oligoReadings {

using Nucleotides = QList<QSharedPointer<const chem::Nucleotide>>;

struct Parsed
{
    bool isValid = false;
    Nucleotides nucleotides;
    chem::NamedMolecule fivePrime;
    chem::NamedMolecule threePrime;
};

inline Parsed parse(const chem::ChemicalFactory& factory, const QString& text)
{
    Parsed result;
    result.isValid = factory.parseNucleotideSequence(text, &result.nucleotides, &result.fivePrime,
                                                     &result.threePrime);
    return result;
}

inline Parsed parse(const QString& text)
{
    return parse(*chem::defaultChemicalFactory(), text);
}

/// The engine of regular expressions as a second implementation, written down step by step. It
/// shares nothing with the reader but the two expressions, whose texts are pinned in the tests of
/// the grammar.
class ByExpressions
{
public:
    explicit ByExpressions(const OpenFactory& factory)
        : m_factory(factory)
        , m_full(factory.generateFullOligoRegex())
        , m_unit(factory.generateOligoSequenceRegex())
    {
    }

    Parsed parse(const QString& text) const
    {
        Parsed result;
        m_factory.standardOligoTermini(&result.fivePrime, &result.threePrime);
        result.fivePrime =
            chem::NamedMolecule(result.fivePrime, QStringLiteral("5Prime"), QString());
        result.threePrime =
            chem::NamedMolecule(result.threePrime, QStringLiteral("3Prime"), QString());
        const QRegularExpressionMatch whole =
            m_full.isValid() ? m_full.match(text) : QRegularExpressionMatch();
        result.isValid = whole.hasMatch();
        if (!result.isValid)
            return result;

        appendUnits(whole.captured(2), &result.nucleotides);
        const QString fiveMark = whole.captured(1);
        const QString threeMark = whole.captured(6);
        const bool isBareNumber =
            result.nucleotides.size() == 1 && result.nucleotides[0]->nucleobase.name == u"~~~";
        if (fiveMark.size() == 1)
            result.fivePrime = entry(chem::ChemicalFactory::FivePrimeTerminalBlock, fiveMark);
        else if (isBareNumber && fiveMark.isEmpty())
            result.fivePrime = chem::NamedMolecule();
        if (threeMark.size() == 1)
            result.threePrime = entry(chem::ChemicalFactory::ThreePrimeTerminalBlock, threeMark);
        else if (isBareNumber && threeMark.isEmpty())
            result.threePrime = chem::NamedMolecule();
        return result;
    }

private:
    chem::NamedMolecule entry(chem::ChemicalFactory::BuildingBlockType type,
                              const QString& key) const
    {
        return m_factory.buildingBlocks.value(type).value(key);
    }

    void appendUnits(const QString& body, Nucleotides* list) const
    {
        QRegularExpressionMatchIterator units;
        if (m_unit.isValid()) // keys can break this one alone
            units = m_unit.globalMatch(body);
        while (units.hasNext()) {
            const QRegularExpressionMatch unit = units.next();
            if (unit.captured(4).isEmpty())
                appendBase(unit, !units.hasNext(), list);
            else
                appendNumber(unit, !units.hasNext(), list);
        }
    }

    void appendBase(const QRegularExpressionMatch& unit, bool isLast, Nucleotides* list) const
    {
        const chem::NamedMolecule base =
            entry(chem::ChemicalFactory::NucleobaseBlock, unit.captured(3).right(1));
        chem::NamedMolecule phosphate = phosphateOf(unit);
        if (phosphate.code.isEmpty())
            phosphate = isLast ? chem::NamedMolecule() : m_factory.defaultPhosphate;
        append(base, unit.captured(1).isEmpty() ? m_factory.defaultRibose : riboseOf(unit),
               phosphate, unit.captured(0), list);
    }

    /// A number at the end takes the phosphate that nobody wrote from the nucleotide before it.
    void appendNumber(const QRegularExpressionMatch& unit, bool isLast, Nucleotides* list) const
    {
        if (isLast && !list->isEmpty() && list->last()->phosphate.code.isEmpty()) {
            const auto last = list->takeLast();
            append(last->nucleobase, last->ribose, chem::NamedMolecule(), last->code, list);
        }
        const double mass = unit.captured(4).toDouble();
        const chem::NamedMolecule base(chem::Molecule({}, mass, mass), QStringLiteral("~~~"),
                                       unit.captured(4));
        const chem::NamedMolecule phosphate = phosphateOf(unit);
        append(base, riboseOf(unit),
               isLast && phosphate.code.isEmpty() ? chem::NamedMolecule() : phosphate,
               unit.captured(0), list);
    }

    chem::NamedMolecule riboseOf(const QRegularExpressionMatch& unit) const
    {
        const QString ribose = unit.captured(1);
        return ribose.size() == 1 ? entry(chem::ChemicalFactory::RiboseBlock, ribose)
                                  : chem::NamedMolecule();
    }

    chem::NamedMolecule phosphateOf(const QRegularExpressionMatch& unit) const
    {
        chem::NamedMolecule phosphate;
        for (const QChar mark : unit.captured(5)) {
            const chem::NamedMolecule found = entry(chem::ChemicalFactory::PhosphateBlock, mark);
            phosphate += found;
            phosphate.code += found.code;
        }
        return phosphate;
    }

    static void append(const chem::NamedMolecule& base, const chem::NamedMolecule& ribose,
                       const chem::NamedMolecule& phosphate, const QString& code, Nucleotides* list)
    {
        list->append(
            QSharedPointer<chem::Nucleotide>::create(base, ribose, phosphate, base.name, code));
    }

    const OpenFactory& m_factory;
    QRegularExpression m_full;
    QRegularExpression m_unit;
};

inline void expectSameReading(const Parsed& found, const Parsed& expected)
{
    ASSERT_EQ(found.isValid, expected.isValid);
    expectSame(found.fivePrime, expected.fivePrime);
    expectSame(found.threePrime, expected.threePrime);
    ASSERT_EQ(found.nucleotides.size(), expected.nucleotides.size());
    for (qsizetype i = 0; i < found.nucleotides.size(); ++i) {
        SCOPED_TRACE(i);
        expectSame(*found.nucleotides[i], *expected.nucleotides[i]);
    }
}

} // namespace oligoReadings
