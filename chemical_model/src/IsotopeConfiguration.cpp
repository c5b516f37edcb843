#include "ChemicalFactory.h"
namespace chem {
bool ChemicalFactory::applyIsotopeOverrides(const QString&)
{
    return false;
}
} // namespace chem
