#include "Choices.h"
#include "Families.h"
#include "Texts.h"

using namespace Qt::StringLiterals;
using namespace chem;

namespace {

constexpr quint64 seed = 4;
constexpr int formulaCount = 250;
constexpr int dictionaryCount = 40;

void askLabels(Answers* answers)
{
    const auto& types = ChemicalFactory::buildingBlockTypes;
    for (auto type = types.cbegin(); type != types.cend(); ++type)
        answers->add("buildingBlockTypes", type.key(), static_cast<int>(type.value()));
    QList<QString> labels = types.keys();
    labels << QString() << u"amino acid"_s << u"Sugar "_s << u"Glycans"_s << u"5' Terminal\n"_s;
    for (const QString& label : std::as_const(labels))
        answers->add("buildingBlockType", label,
                     static_cast<int>(ChemicalFactory::buildingBlockType(label)));
    answers->add("ChainDelimeter", ChemicalFactory::ChainDelimeter);
}

void askConversions(Answers* answers, Choices* choices)
{
    for (int i = 0; i < formulaCount; ++i) {
        const QString text = anyFormulaText(choices);
        for (int type = 0; type <= ChemicalFactory::NoBlock; ++type) {
            const auto kind = static_cast<ChemicalFactory::BuildingBlockType>(type);
            answers->add("convertOldOligoBuildingBlockFormula", text, type,
                         ChemicalFactory::convertOldOligoBuildingBlockFormula(text, kind));
        }
    }
}

void askTermini(Answers* answers)
{
    const auto factory = defaultChemicalFactory();
    NamedMolecule first;
    NamedMolecule last;
    factory->standardPeptideTermini(&first, &last);
    answers->add("standardPeptideTermini", first, last);
    factory->standardOligoTermini(&last, &first);
    answers->add("standardOligoTermini", last, first);
}

/// What the readers make of texts once a block is new.
void askReaders(Answers* answers, const ChemicalFactory& factory, const QString& code)
{
    const auto peptide = factory.constructLinearPeptideComplex(u"GA%1"_s.arg(code));
    answers->detail("peptide", *peptide, peptide->residues);
    for (const QString& pattern : {u"A%1A"_s, u"%1AC"_s, u"AC%1"_s}) {
        const QString strand = pattern.arg(code);
        QList<QSharedPointer<const Nucleotide>> nucleotides;
        NamedMolecule fivePrime;
        NamedMolecule threePrime;
        const bool isRead =
            factory.parseNucleotideSequence(strand, &nucleotides, &fivePrime, &threePrime);
        answers->detail("strand", strand, isRead, nucleotides, fivePrime, threePrime);
    }
    const QString glycan = u"%1(2)Hex(1)"_s.arg(code);
    answers->detail("glycan", factory.isValidGlycanComposition(glycan),
                    factory.constructGlycanModification(glycan));
    answers->detail("expressions", factory.generateFullOligoRegex().pattern(),
                    factory.generateOligoSequenceRegex().pattern());
}

void askDictionaries(Answers* answers, Choices* choices)
{
    static const QList<QString> codes = {u"X"_s,  u"Z"_s, u"A"_s,      u"d"_s,   u"*"_s, u"["_s,
                                         u"]"_s,  u"-"_s, u"Hex"_s,    u"Na"_s,  u"7"_s, u"%2"_s,
                                         u"ab"_s, u"."_s, u"\u00c5"_s, QString()};
    for (int i = 0; i < dictionaryCount; ++i) {
        const auto factory = ChemicalFactory::construct(QString());
        for (int blocks = choices->from(1, 4); blocks > 0; --blocks) {
            const int type = choices->below(ChemicalFactory::NoBlock + 1);
            const QString code = choices->of(codes);
            const QString formula = anyFormulaText(choices);
            factory->setBuildingBlock(static_cast<ChemicalFactory::BuildingBlockType>(type), code,
                                      u"own block"_s, formula);
            answers->add("setBuildingBlock", type, code, formula);
            askReaders(answers, *factory, code);
        }
    }
}

} // namespace

void askBlocks(Answers* answers)
{
    Choices choices(seed);
    askLabels(answers);
    askConversions(answers, &choices);
    askTermini(answers);
    askDictionaries(answers, &choices);
}
