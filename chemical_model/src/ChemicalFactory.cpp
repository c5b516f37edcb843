#include "ChemicalFactory.h"

#include "ElementMasses.h"
#include "OligoParts.h"
#include "OligoScanner.h"
#include "PeptideParts.h"

namespace chem {

const QChar ChemicalFactory::ChainDelimeter = u'/';

ChemicalFactory::ChemicalFactory() = default;
ChemicalFactory::ChemicalFactory(const ChemicalFactory& other) = default;
ChemicalFactory::ChemicalFactory(ChemicalFactory&& other) noexcept = default;
ChemicalFactory& ChemicalFactory::operator=(const ChemicalFactory& other) = default;
ChemicalFactory& ChemicalFactory::operator=(ChemicalFactory&& other) noexcept = default;
ChemicalFactory::~ChemicalFactory() = default;

QSharedPointer<ChemicalFactory> ChemicalFactory::construct(const QString& isotopeOverrides)
{
    // A shared pointer does not delete what it is given if it gets no memory for its own data.
    std::unique_ptr<ChemicalFactory> made(new ChemicalFactory);
    made->init(isotopeOverrides);
    const QSharedPointer<ChemicalFactory> factory(made.get());
    [[maybe_unused]] const ChemicalFactory* const owned = made.release();
    return factory;
}

void ChemicalFactory::init(const QString& isotopeOverrides)
{
    loadIsotopeTable();
    const bool isReadable = isotopeOverrides.isEmpty() || applyIsotopeOverrides(isotopeOverrides);
    indexIsotopes();
    priceElements();
    if (!isReadable)
        return;
    fillBuildingBlocks();
    fillConstants();
    prepareReaders();
}

void ChemicalFactory::fillConstants()
{
    using namespace Qt::StringLiterals;
    water = constructMolecule(u"H2O1"_s);
    waterPair = constructMolecule(u"H4O2"_s);
    hydroxyl = constructMolecule(u"O1H1"_s);
    oxygen = constructMolecule(u"O1"_s);
    hydrogen = constructMolecule(u"H1"_s);
    hydrogenPair = constructMolecule(u"H2"_s);
    amine = constructMolecule(u"N1H2"_s);
    ammonia = constructMolecule(u"N1H3"_s);
    formyl = constructMolecule(u"C1O1H1"_s);
    electron = constructMolecule(u"E"_s);
    proton = hydrogen - electron;
}

void ChemicalFactory::prepareReaders()
{
    preparePeptideReader();
    prepareOligoReader();
}

const ElementMasses& ChemicalFactory::elementMasses() const
{
    static const ElementMasses ofNothing;
    return m_elementMasses ? *m_elementMasses : ofNothing;
}

const OligoScanner& ChemicalFactory::oligoScanner() const
{
    static const OligoScanner ofNothing{OligoAlphabets()};
    return m_oligoScanner ? *m_oligoScanner : ofNothing;
}

// A move leaves the constants and takes what was prepared: that is made again from what is left.
// What is there is lent without counting references, on which threads would meet.

std::shared_ptr<const PeptideParts> ChemicalFactory::peptideParts() const
{
    if (!m_peptideParts)
        return std::make_shared<PeptideParts>(makePeptideParts());
    return {std::shared_ptr<void>(), &m_peptideParts->forThisThread()};
}

std::shared_ptr<const OligoParts> ChemicalFactory::oligoParts() const
{
    if (!m_oligoParts)
        return makeOligoParts();
    return {std::shared_ptr<void>(), m_oligoParts.get()};
}

/// Prepares anew what reads the dictionary of `type`: amino acids, or a part of oligonucleotides.
void ChemicalFactory::prepareReaderOf(BuildingBlockType type)
{
    if (type == AminoAcidBlock)
        preparePeptideReader();
    else
        prepareOligoReader();
}

QSharedPointer<const ChemicalFactory> defaultChemicalFactory()
{
    static const QSharedPointer<const ChemicalFactory> factory =
        ChemicalFactory::construct(QString());
    return factory;
}

} // namespace chem
