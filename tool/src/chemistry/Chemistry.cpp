#include "chemistry/Chemistry.h"

#include "chemistry/IsotopeConfig.h"
#include "support/Complaints.h"

using namespace Qt::StringLiterals;

namespace tool {

namespace {

QString checkedOrThrow(const QString& isotopes)
{
    if (isotopes.isEmpty())
        return isotopes;
    ions::Parsed<QString> checked = checkedIsotopes(isotopes);
    if (!checked) {
        throw UsageError{
            u"--isotopes:1:%1: %2"_s.arg(checked.error().position).arg(checked.error().message)};
    }
    return std::move(checked).value();
}

} // namespace

Chemistry::Chemistry(const QString& isotopes)
    : factory(chem::ChemicalFactory::construct(checkedOrThrow(isotopes)))
    , residues(*factory)
    , nucleotides(*factory)
    , modifications(ions::ModificationTable::standard(residues.atoms()))
{
}

} // namespace tool
