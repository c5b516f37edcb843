#include "ChemicalFactory.h"

#include "factory/PreparedFactory.h"

#include <utility>

namespace chem {

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
    IsotopeTable table;
    const bool isReadable = isotopeOverrides.isEmpty() || table.replaceIsotopes(isotopeOverrides);
    Prepared::writeIsotopes(table, this);
    m_prepared = Prepared::make(std::move(table));
    if (!isReadable)
        return;
    Prepared::fillBuildingBlocks(this);
    Prepared::fillConstants(this);
}

QSharedPointer<const ChemicalFactory> defaultChemicalFactory()
{
    static const QSharedPointer<const ChemicalFactory> factory =
        ChemicalFactory::construct(QString());
    return factory;
}

} // namespace chem
