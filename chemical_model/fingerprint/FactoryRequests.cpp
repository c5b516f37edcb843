#include "Choices.h"
#include "Factories.h"
#include "Families.h"
#include "MessageRecorder.h"

#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace chem;

namespace {

constexpr quint64 seed = 3;
constexpr int configurationCount = 60;
constexpr int listCount = 3000;

/// What only a derived class can read and call.
struct OpenTables : public ChemicalFactory
{
    explicit OpenTables(const QString& configuration) { init(configuration); }

    void ask(Answers* answers) const
    {
        for (const IsotopeRecord& row : isotopes)
            answers->detail(row.atomicNumber, row.extraNeutrons, row.name, row.symbol, row.mass,
                            row.abundance);
        for (auto entry = isotopesBySymbol.cbegin(); entry != isotopesBySymbol.cend(); ++entry)
            answers->detail(entry.key(), entry.value());
        for (auto number = isotopesByAtomicNumber.cbegin(); number != isotopesByAtomicNumber.cend();
             ++number)
            answers->detail(number.key(), number.value());
        for (auto entry = isotopesByName.cbegin(); entry != isotopesByName.cend(); ++entry)
            answers->detail(entry.key(), entry.value());
        for (const auto& dictionary : buildingBlocks) {
            for (auto block = dictionary.cbegin(); block != dictionary.cend(); ++block)
                answers->detail(block.key(), block.value());
        }
        for (const Molecule& constant : {water, waterPair, hydroxyl, hydrogen, oxygen, amine,
                                         hydrogenPair, ammonia, formyl, electron, proton})
            answers->detail(constant);
        answers->detail(defaultRibose, defaultPhosphate);
    }
};

/// Makes a factory and asks it for some masses, in words if it refuses. The text of the exception
/// is IsoSpec++'s own and changes with its version.
void askConfiguration(Answers* answers, const QString& configuration)
{
    try {
        const auto factory = ChemicalFactory::construct(configuration);
        answers->add("construct", configuration, factory->constructMolecule(u"C6H12N2O3S"_s),
                     factory->constructMolecule(u"XeSeE2"_s));
        answers->detail(factory->constructLinearPeptideComplex(u"GASK"_s)->monoMass(),
                        factory->isValidOligoSequence(u"ACGT"_s));
    } catch (const std::invalid_argument&) {
        answers->add("construct", configuration, "refused");
    }
}

void askChosenConfigurations(Answers* answers)
{
    for (const QString& configuration : labelledConfigurations())
        askConfiguration(answers, configuration);
    for (const QString& configuration : {QString(),         u" "_s,
                                         u"C13"_s,          u"C13:"_s,
                                         u"13:1"_s,         u"Xx5:1"_s,
                                         u" C13:1"_s,       u"C13:1 "_s,
                                         u"C13:1  C12:0"_s, u"C13:0"_s,
                                         u"C13:-1"_s,       u"C13:1.5"_s,
                                         u"C13:nan"_s,      u"Xe129:0"_s,
                                         u"Xe129:2"_s,      u"C13:1:2"_s,
                                         u"C13:0x1"_s,      u"C99999999999:1"_s,
                                         u"C-13:1"_s,       u"c13:1"_s,
                                         u"E0:1"_s,         u"C13:99,C12:1"_s,
                                         u"N15:1\nC13:1"_s, u"U235:3 U238:97"_s})
        askConfiguration(answers, configuration);
}

void askRandomConfigurations(Answers* answers, Choices* choices)
{
    static const QList<QString> isotopes = {u"C12"_s, u"C13"_s, u"C14"_s, u"H1"_s,  u"H2"_s,
                                            u"H3"_s,  u"N14"_s, u"N15"_s, u"O16"_s, u"O17"_s,
                                            u"O18"_s, u"S32"_s, u"S33"_s, u"S34"_s, u"Se80"_s};
    for (int i = 0; i < configurationCount; ++i) {
        QStringList entries;
        const int unit = choices->oneIn(2) ? 1 : 100;
        for (int count = choices->from(1, 4); count > 0; --count) {
            const QString isotope = choices->of(isotopes);
            const int thousandths = choices->from(1, 1000) * unit;
            entries.append(isotope + u':' + QString::number(thousandths / 1000) + u'.' +
                           QString::number(thousandths % 1000 + 1000).sliced(1));
        }
        askConfiguration(answers, entries.join(u' '));
    }
}

void askTables(Answers* answers)
{
    for (const QString& configuration : {QString(), u"C13:99 C12:1 N15:1"_s, u"C13"_s}) {
        answers->add("init", configuration);
        OpenTables(configuration).ask(answers);
    }
}

/// The same questions to a factory after each way to copy it.
void askCopy(Answers* answers, const char* how, const ChemicalFactory& factory)
{
    NamedMolecule first;
    NamedMolecule last;
    factory.standardPeptideTermini(&first, &last);
    answers->add(how, factory.constructMolecule(u"C2H5NO2"_s), first, last,
                 factory.constructLinearPeptideComplex(u"GK"_s)->averageMass());
}

void askCopies(Answers* answers)
{
    const auto labelled = ChemicalFactory::construct(u"C13:1"_s);
    ChemicalFactory copy = *labelled;
    askCopy(answers, "copy", copy);
    copy = *defaultChemicalFactory();
    askCopy(answers, "assign", copy);
    ChemicalFactory taken = std::move(copy);
    askCopy(answers, "move", taken);
    askCopy(answers, "moved from", copy);
    copy = std::move(taken);
    askCopy(answers, "move back", copy);
    askCopy(answers, "moved from again", taken);
    answers->add("defaultChemicalFactory", defaultChemicalFactory() == defaultChemicalFactory());
}

void askNormalize(Answers* answers, Choices* choices)
{
    const QList<double> odd = {0.0, -0.0, 0.5, -1.0, 2147483647.0, 1e300, -3e9, 1e-17};
    for (int i = 0; i < listCount; ++i) {
        QList<double> values;
        for (int count = choices->below(6); count > 0; --count)
            values.append(choices->oneIn(8) ? choices->of(odd) : choices->number(100));
        MessageRecorder::messages().clear();
        const QList<double> before = values;
        normalize(values);
        answers->add("normalize", before, values);
        for (const MessageRecorder::Message& message : MessageRecorder::messages())
            answers->detail(message.category, message.text);
    }
}

} // namespace

void askFactories(Answers* answers)
{
    Choices choices(seed);
    askChosenConfigurations(answers);
    askRandomConfigurations(answers, &choices);
    askTables(answers);
    askCopies(answers);
    askNormalize(answers, &choices);
}
