#include "Recipes.h"

void modifiedSugars(QTextStream& out)
{
    //! [ModifiedSugars]
    const auto factory = defaultChemicalFactory();
    // 2'-O-methyl (m), 2'-fluoro (f) and unmodified DNA; * is a phosphorothioate.
    const auto oligo = factory->constructLinearOligoComplex(u"mU*fC*A G mG*fA"_s);
    if (oligo.isNull())
        return; // the text is outside the grammar
    out << oligo->formula().toString() << ' ' << QString::number(oligo->monoMass(), 'f', 4)
        << " Da\n";
    for (const auto& residue : std::as_const(oligo->residues))
        out << residue->position << ' ' << residue->code << ' ' << residue->name << '\n';

    // A sugar of your own: give it a letter that is not in use. The default factory is const,
    // so take a factory that is yours.
    const auto mine = ChemicalFactory::construct(QString());
    mine->setBuildingBlock(ChemicalFactory::RiboseBlock, u"t"_s, u"2',4'-ethylene bridge"_s,
                           u"C7H9O3"_s);
    out << mine->constructLinearOligoComplex(u"tAtC"_s)->formula().toString() << '\n';
    //! [ModifiedSugars]
}
