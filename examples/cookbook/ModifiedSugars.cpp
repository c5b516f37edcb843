#include "Recipes.h"

void modifiedSugars(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    //! [ModifiedSugars]
    // 2'-O-methyl (m), 2'-fluoro (f) and unmodified DNA; * is a phosphorothioate.
    const auto oligo = factory->constructLinearOligoComplex(u"mU*fC*A G mG*fA"_s);
    if (oligo.isNull())
        return; // the text is outside the grammar

    // A sugar of your own has a letter that is not in use, in a factory that is yours.
    const auto mine = ChemicalFactory::construct(QString());
    mine->setBuildingBlock(ChemicalFactory::RiboseBlock, u"t"_s, u"2',4'-ethylene bridge"_s,
                           u"C7H9O3"_s);
    const auto bridged = mine->constructLinearOligoComplex(u"tAtC"_s);
    //! [ModifiedSugars]
    out << oligo->formula().toString() << ' ' << daltons(oligo->monoMass()) << '\n';
    out << bridged->formula().toString() << '\n';
}
