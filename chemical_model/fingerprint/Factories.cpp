#include "Factories.h"

using namespace Qt::StringLiterals;
using namespace chem;

const QList<QString>& labelledConfigurations()
{
    static const QList<QString> configurations = {
        u"C13:0.99 C12:0.01"_s,
        u"N15:98.5 N14:1.5"_s,
        u"H1:1 H2:99"_s,
        u"C12:1"_s,
        u"C13:50 C12:50 N15:50 N14:50 H2:0.3 H1:0.7"_s,
        u"O18:0.97 O16:0.02 O17:0.01"_s,
        u"Se80:1 S34:90\tS32:10"_s,
        u"C14:0.5 C12:0.5"_s,
    };
    return configurations;
}

const QList<QSharedPointer<const ChemicalFactory>>& factories()
{
    static const QList<QSharedPointer<const ChemicalFactory>> all = [] {
        QList<QSharedPointer<const ChemicalFactory>> made = {defaultChemicalFactory()};
        for (const QString& configuration : labelledConfigurations())
            made.append(ChemicalFactory::construct(configuration));
        return made;
    }();
    return all;
}
