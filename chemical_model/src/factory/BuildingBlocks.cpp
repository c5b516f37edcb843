#include "ChemicalFactory.h"
#include "factory/PreparedFactory.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace chem {

const QMap<QString, ChemicalFactory::BuildingBlockType> ChemicalFactory::buildingBlockTypes = {
    {u"Amino Acid"_s, AminoAcidBlock},
    {u"Nucleobase"_s, NucleobaseBlock},
    {u"Ribose"_s, RiboseBlock},
    {u"Phosphate"_s, PhosphateBlock},
    {u"Glycan"_s, GlycanBlock},
    {u"Sugar"_s, SugarBlock},
    {u"Protein N-Terminal"_s, ProteinNTerminalBlock},
    {u"Protein C-Terminal"_s, ProteinCTerminalBlock},
    {u"N-Terminal"_s, NTerminalBlock},
    {u"C-Terminal"_s, CTerminalBlock},
    {u"5' Terminal"_s, FivePrimeTerminalBlock},
    {u"3' Terminal"_s, ThreePrimeTerminalBlock},
};

namespace {

/// What turns a whole species of the older convention into the piece that remains in a chain.
QString oldConventionCorrection(ChemicalFactory::BuildingBlockType type)
{
    switch (type) {
    case ChemicalFactory::NucleobaseBlock:
        return u"H(-1)"_s;
    case ChemicalFactory::RiboseBlock:
        return u"O(-2)H(-3)"_s;
    case ChemicalFactory::PhosphateBlock:
        return u"O(-1)H1"_s;
    case ChemicalFactory::FivePrimeTerminalBlock:
        return u"O(-1)"_s;
    default:
        return QString();
    }
}

} // namespace

ChemicalFactory::BuildingBlockType ChemicalFactory::buildingBlockType(const QString& label)
{
    return buildingBlockTypes.value(label, NoBlock);
}

void ChemicalFactory::setBuildingBlock(BuildingBlockType type, const QString& code,
                                       const QString& name, const QString& formula)
{
    const NamedMolecule block(constructMolecule(formula), name, code);
    if (Prepared::ownsDictionary(*this, type)) {
        Prepared::insertBlock(type, block, this);
        return;
    }
    // Changed apart and moved back, which cannot fail: whatever is thrown on the way, no dictionary
    // is half copied.
    ChemicalFactory changed(*this);
    Prepared::insertBlock(type, block, &changed);
    *this = std::move(changed);
}

QString ChemicalFactory::convertOldOligoBuildingBlockFormula(const QString& formula,
                                                             BuildingBlockType type)
{
    const ChemicalFormula correction = parseChemicalFormula(oldConventionCorrection(type));
    return (parseChemicalFormula(formula) + correction).toString();
}

} // namespace chem
