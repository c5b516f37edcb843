#pragma once

#include "Backbone.h"
#include "Composition.h"
#include "Digest.h"
#include "FragmentIons.h"
#include "Ionization.h"
#include "ModificationTable.h"
#include "StandardResidues.h"
#include "Tolerance.h"
#include <zel_chemical_model/ChemicalFactory.h>
#include <zel_chemical_model/LinearComplex.h>

#include <QRegularExpression>
#include <QString>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <optional>

/// \file
/// What holds for every text that a reader is handed: it is refused at a place of the text, or read
/// as something that writes back to text of the same meaning. Tests and the fuzzer ask the same.

namespace readerLaws {

/// How a reader took a text.
struct Outcome
{
    bool isRead = false;
    const char* brokenLaw = nullptr; ///< Null where all laws hold.
};

/// A reader: its laws, texts that it takes and the pieces that such texts are made of.
struct Reader
{
    const char* name = nullptr;
    Outcome (*check)(const QString& text) = nullptr;
    QStringList texts;
    QStringList pieces;
    int slowness = 1; ///< By how much fewer texts a test asks it, for the time that it takes.
};

/// Whether the text was well-formed and refused for what it says.
inline bool isRefusedForItsMeaning(const ions::Error& error)
{
    const std::array words = {u"too large", u"more than", u"which is", u"have masses",
                              u"no mass is known"};
    return std::any_of(words.begin(), words.end(),
                       [&error](QStringView part) { return error.message.contains(part); });
}

/// The law of all refusals that this one breaks, or null.
inline const char* brokenBy(const ions::Error& error, const QString& text)
{
    if (error.position < 0 || error.position > text.size())
        return "an error has a place in the text or at its end";
    if (error.chain != -1 || error.residue != -1)
        return "an error in a text names no chain";
    if (!error.message.contains(u"expected") && !isRefusedForItsMeaning(error))
        return "an error says what was expected";
    return nullptr;
}

/// Reads a text and asks the law of its values, which gives null where it holds.
template <typename Read, typename Law>
Outcome outcomeOf(const QString& text, const Read& read, const Law& law)
{
    const auto parsed = read(text);
    if (parsed)
        return {true, law(*parsed)};
    return {false, brokenBy(parsed.error(), text)};
}

/// The same for readers that refuse at the first character that cannot stand there: what is in
/// front of it is the beginning of a text.
template <typename Read, typename Law>
Outcome exactOutcomeOf(const QString& text, const Read& read, const Law& law)
{
    const Outcome outcome = outcomeOf(text, read, law);
    if (outcome.isRead || outcome.brokenLaw)
        return outcome;
    const qsizetype position = read(text).error().position;
    const auto front = read(text.first(position));
    if (front || front.error().position == position || isRefusedForItsMeaning(front.error()))
        return outcome;
    return {false, "what stands in front of an error can stand there"};
}

/// The law of a composition: its text and its formula have the same atoms.
inline const char* brokenBy(const ions::Composition& composition)
{
    const bool hasCounts =
        std::none_of(composition.terms().begin(), composition.terms().end(), [](const auto& term) {
            return term.count == 0 || term.atom.atomicNumber == 0;
        });
    if (!hasCounts)
        return "every term has atoms";
    const auto again = ions::Composition::read(composition.toString());
    if (!composition.isEmpty() && !(again && *again == composition))
        return "a composition reads back from its text";
    const auto fromFormula = ions::Composition::fromFormula(composition.toFormula());
    if (!fromFormula || !(*fromFormula == composition))
        return "a composition comes back from its formula";
    return nullptr;
}

inline Outcome readComposition(const QString& text)
{
    return exactOutcomeOf(
        text, [](QStringView t) { return ions::Composition::read(t); },
        [](const ions::Composition& composition) { return brokenBy(composition); });
}

inline Outcome readUnimod(const QString& text)
{
    return exactOutcomeOf(
        text, [](QStringView t) { return ions::Composition::readUnimod(t); },
        [](const ions::Composition& composition) { return brokenBy(composition); });
}

inline const char* brokenBy(const ions::Ionization& ion)
{
    const auto again = ions::Ionization::read(ion.toString());
    if (!again || !(*again == ion))
        return "an ion reads back from its text";
    if (again->toString() != ion.toString())
        return "the text of an ion is canonical";
    if (!(again->carriers() == ion.carriers()) || again->mz(1000.0) != ion.mz(1000.0))
        return "ions of one text have one m/z";
    if (ion.charge() == 0 || ion.molecules() < 1 || !std::isfinite(ion.mz(1000.0)))
        return "an ion has a charge, a molecule and an m/z";
    return nullptr;
}

inline Outcome readIonization(const QString& text)
{
    return exactOutcomeOf(
        text, [](QStringView t) { return ions::Ionization::read(t); },
        [](const ions::Ionization& ion) { return brokenBy(ion); });
}

/// The tolerance of a text by an expression and the number that the C++ library reads; nothing for
/// texts that it does not take.
inline std::optional<ions::Tolerance> toleranceByExpression(const QString& text)
{
    static const QRegularExpression form(
        QStringLiteral("\\A([0-9]+\\.?[0-9]*|\\.[0-9]+) ?(?:([pP][pP][mM])|[dD][aA])\\z"));
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return {};
    const double width = std::strtod(match.captured(1).toLatin1().constData(), nullptr);
    static const QRegularExpression digit(QStringLiteral("[1-9]"));
    const bool isLost = width == 0.0 && match.captured(1).contains(digit);
    if (!std::isfinite(width) || isLost)
        return {}; // neither too large nor too small for a double
    return match.capturedLength(2) > 0 ? ions::ppm(width) : ions::daltons(width);
}

inline Outcome readTolerance(const QString& text)
{
    const auto expected = toleranceByExpression(text);
    const Outcome outcome = exactOutcomeOf(
        text, [](QStringView t) { return ions::Tolerance::read(t); },
        [&expected](const ions::Tolerance& read) -> const char* {
            return expected == read ? nullptr : "a tolerance is what its form says";
        });
    if (expected && !outcome.isRead)
        return {false, "a tolerance of the right form is read"};
    return outcome;
}

inline Outcome readLossRule(const QString& text)
{
    const auto read = [](QStringView t) {
        return ions::LossRule::read(t, ions::residues().atoms());
    };
    return exactOutcomeOf(text, read, [&read](const ions::LossRule& rule) -> const char* {
        const QString sites = rule.residues.isEmpty() ? QString() : QString(u'@' + rule.residues);
        const QString written = rule.loss.name + sites;
        const auto again = read(written);
        if (!again || !(again->loss == rule.loss) || again->residues != rule.residues)
            return "a loss reads back from its name and its residues";
        return std::isfinite(rule.loss.masses.monoisotopic) ? nullptr : "a loss has a mass";
    });
}

inline Outcome readPeptide(const QString& text)
{
    const auto read = [](QStringView t) {
        return ions::Backbone::peptide(t, ions::residues());
    };
    return exactOutcomeOf(text, read, [&text](const ions::Backbone& backbone) -> const char* {
        const ions::BackboneChain& chain = backbone.chains()[0];
        if (chain.letters != text || std::ssize(chain.units) != text.size())
            return "a peptide has the letters of its text";
        const double mass = ions::residues().peptide(text)->monoisotopic;
        const double difference = std::abs(backbone.masses().monoisotopic - mass);
        return difference <= 1e-12 * mass ? nullptr : "a peptide weighs its residues and water";
    });
}

/// The whole text goes to the first library as well: it must take the same texts but bare masses,
/// and weigh them alike.
inline Outcome readOligonucleotide(const QString& text)
{
    const auto factory = chem::defaultChemicalFactory();
    const auto read = [&factory](QStringView t) {
        return ions::Backbone::oligonucleotide(t, *factory);
    };
    QList<QSharedPointer<const chem::Nucleotide>> nucleotides;
    chem::NamedMolecule left;
    chem::NamedMolecule right;
    const bool isOligo = factory->parseNucleotideSequence(text, &nucleotides, &left, &right);
    const Outcome outcome = outcomeOf(text, read, [&](const ions::Backbone& backbone) {
        if (!isOligo || std::ssize(backbone.chains()[0].units) != nucleotides.size())
            return "an oligonucleotide has the units of its text";
        const double mass = factory->constructLinearOligoComplex(text)->monoMass();
        const double difference = std::abs(backbone.masses().monoisotopic - mass);
        const char* const law = "an oligonucleotide weighs what its complex does";
        // Each of the two sums is rounded once a unit.
        const double rounding = (1e-12 + 1e-16 * double(text.size())) * mass;
        return difference <= rounding ? nullptr : law;
    });
    const auto isDigit = [](QChar c) {
        return c >= u'0' && c <= u'9';
    };
    if (isOligo && !outcome.isRead && std::none_of(text.begin(), text.end(), isDigit))
        return {false, "an oligonucleotide without numbers is read"};
    return outcome;
}

/// Names are read whatever their case, and every other text is refused at its start.
template <typename Agent>
Outcome agentOutcomeOf(const QString& text)
{
    return exactOutcomeOf(
        text, [](QStringView t) { return Agent::named(t); },
        [&text](const Agent& agent) -> const char* {
            const bool isName = agent.name().endsWith(text, Qt::CaseInsensitive) ||
                                text.endsWith(agent.name(), Qt::CaseInsensitive) ||
                                agent.accession().compare(text, Qt::CaseInsensitive) == 0;
            return isName ? nullptr : "an agent is read by its name or accession";
        });
}

inline Outcome readProtease(const QString& text)
{
    return agentOutcomeOf<ions::Protease>(text);
}

inline Outcome readRibonuclease(const QString& text)
{
    return agentOutcomeOf<ions::Ribonuclease>(text);
}

/// An expression cuts like the engine: with one more alternative that never matches it is none that
/// letter classes can say.
inline Outcome readExpression(const QString& text)
{
    const auto read = [](const QString& t) {
        return ions::Protease::fromExpression(t);
    };
    return outcomeOf(text, read, [&](const ions::Protease& agent) -> const char* {
        if (agent.expression() != text)
            return "an expression stays as it was written";
        std::vector<qsizetype> cuts;
        std::vector<qsizetype> cutsByEngine;
        const bool isCut = agent.findCuts(u"MKRPK*DEkP", &cuts);
        if (!isCut && !cuts.empty())
            return "an engine that gives up leaves no cuts";
        if (!agent.isCompiled())
            return nullptr;
        const QString leftToEngine =
            QStringLiteral("(?:") + text + QStringLiteral(")|(?!\\w|\\W|$)a");
        const auto byEngine = read(leftToEngine);
        if (!byEngine || byEngine->isCompiled() ||
            !byEngine->findCuts(u"MKRPK*DEkP", &cutsByEngine))
            return "an expression that compiles is one that the engine reads";
        return cuts == cutsByEngine ? nullptr : "letter classes cut where the engine does";
    });
}

inline const ions::ModificationTable& modifications()
{
    static const auto table = ions::ModificationTable::standard(ions::residues().atoms());
    return table;
}

/// What is found by a text bears it, and what is not found gives null.
inline Outcome lookUp(const QString& text)
{
    const ions::ModificationEntry* const entry = modifications().byName(text);
    if (entry && entry->name.toCaseFolded() != text.toCaseFolded())
        return {true, "a modification is found by its name alone"};
    const auto series = ions::seriesNamed(text);
    if (series && ions::seriesName(*series) != text)
        return {true, "a series is found by its name alone"};
    const ions::Atom element = ions::Atom::element(text);
    if (element.atomicNumber != 0 && element.symbol() != text)
        return {true, "an element is found by its symbol alone"};
    const ions::MoleculePart* const sugar = ions::residues().monosaccharide(text);
    if (sugar && sugar->code != text)
        return {true, "a monosaccharide is found by its name alone"};
    const auto peptide = ions::residues().peptide(text);
    if (!peptide)
        return {false, brokenBy(peptide.error(), text)};
    return {true, std::isfinite(peptide->monoisotopic) ? nullptr : "a peptide has a mass"};
}

} // namespace readerLaws
