#include "Recipes.h"
#include <IonModel.h>
#include <zel_chemical_model/ChainFragmenter.h>
#include <zel_chemical_model/Modify.h>

using namespace ions;

namespace {

const ResidueTable& natural()
{
    static const ResidueTable residues;
    return residues;
}

const ModificationTable& standard()
{
    static const ModificationTable table = ModificationTable::standard(natural().atoms());
    return table;
}

/// A text, canonical, with its masses and what else is known of its first ion.
void weigh(QTextStream& out, const QStringList& texts)
{
    for (const QString& text : texts) {
        const Peptidoform peptidoform = Peptidoform::read(text).value();
        const PeptidoformWeight weight = peptidoform.weigh(0, natural(), standard()).value();
        out << peptidoform.toString() << ' ' << QString::number(weight.masses.monoisotopic, 'f', 4);
        if (weight.composition)
            out << ' ' << weight.composition->toString();
        if (weight.charge != 0)
            out << " m/z " << QString::number(weight.mz.monoisotopic, 'f', 4);
        out << '\n';
    }
}

} // namespace

void proFormaFirst(QTextStream& out)
{
    //! [ProFormaFirst]
    const ResidueTable residues; // natural isotopes
    const ModificationTable modifications = ModificationTable::standard(residues.atoms());

    const Peptidoform peptidoform = Peptidoform::read(u"em[unimod:0035]K/+2").value();
    const PeptidoformWeight weight = peptidoform.weigh(0, residues, modifications).value();
    out << peptidoform.toString() << ' ' << QString::number(weight.masses.monoisotopic, 'f', 4)
        << ' ' << weight.composition->toString() << " m/z "
        << QString::number(weight.mz.monoisotopic, 'f', 4) << '\n';
    //! [ProFormaFirst]
}

void proFormaTags(QTextStream& out)
{
    weigh(out,
          //! [ProFormaTags]
          {u"EM[Oxidation]K"_s,                 // by name: Unimod, then XLMOD
           u"EM[U:Oxidation]K"_s,               // of one vocabulary: U, X, M, R, G
           u"EM[Formula:O]K"_s,                 // by atoms
           u"EM[+15.9949]K"_s,                  // by mass: no atoms are known
           u"EN[Glycan:HexNAc2Hex3]K"_s,        // by sugars
           u"ES[Obs:+79.98|Phospho|INFO:x]K"_s, // the first with a mass, Obs last, never INFO
           u"EX[+367.0537]K"_s,                 // X weighs what stands on it
           u"[Acetyl]-EK-[Amidated]"_s}         // ends
                                                //! [ProFormaTags]
    );
}

void proFormaPlaces(QTextStream& out)
{
    weigh(out,
          //! [ProFormaPlaces]
          {u"[Phospho]^2?ESTK"_s,                // two, somewhere
           u"[Phospho|Position:S,T]?ESTK"_s,     // on S or on T
           u"ES[#g1(0.2)]T[Phospho#g1(0.8)]K"_s, // one of the labelled places, with scores
           u"E(STS)[Phospho]K"_s,                // somewhere in a range
           u"{Glycan:Hex}ESTK"_s,                // falls off before the chain breaks
           u"(?EM)STK"_s}                        // in this order or the other
                                                 //! [ProFormaPlaces]
    );
}

void proFormaRules(QTextStream& out)
{
    weigh(out,
          //! [ProFormaRules]
          {u"<[Carbamidomethyl]@C>ECC[+5]K"_s,       // on every C that bears nothing yet
           u"<[Label:13C(6)15N(2)]@K>EK[Acetyl]K"_s, // here on the last K alone
           u"<[TMT6plex]@K,N-term>EK"_s,             // and on ends
           u"<13C>ES[Phospho]K"_s,                   // every carbon
           u"<D>E[+5]K"_s}                           // but no bare mass and no proton
                                                     //! [ProFormaRules]
    );
}

void proFormaBridges(QTextStream& out)
{
    weigh(out,
          //! [ProFormaBridges]
          {u"EC[X:Disulfide#XL1]EC[#XL1]K"_s,          // within a chain
           u"EK[X:DSS#XL1]E//EK[#XL1]E"_s,             // between chains
           u"EK[X:DSS#XL1]E"_s,                        // one end: as written
           u"ED[U:Dehydrated#BRANCH]K//K[#BRANCH]E"_s} // a branch
                                                       //! [ProFormaBridges]
    );
}

void proFormaCharges(QTextStream& out)
{
    weigh(out,
          //! [ProFormaCharges]
          {u"PEPTIDE/-2"_s,                // protons taken away
           u"PEPTIDE/[Na:z+1,H:z+1]"_s,    // other carriers
           u"PEPT[Formula:Zn:z+2]IDE/2"_s} // 4+: charges on the molecule count too
                                           //! [ProFormaCharges]
    );
}

void proFormaRefused(QTextStream& out)
{
    //! [ProFormaRefused]
    for (const QString& text : {u"EM[Oxidation"_s, u"EM[Oxidatoin]K"_s, u"EBK"_s}) {
        const Parsed<Peptidoform> peptidoform = Peptidoform::read(text);
        const Error error = peptidoform ? peptidoform->weigh(0, natural(), standard()).error()
                                        : peptidoform.error();
        out << error.position << ": " << error.message << '\n';
    }
    //! [ProFormaRefused]
}

void proFormaMolecule(QTextStream& out)
{
    //! [ProFormaMolecule]
    const Peptidoform peptidoform = Peptidoform::read(u"[Acetyl]-EM[Oxidation]STK").value();
    const chem::MoleculeEntity molecule = peptidoform.molecule(0, natural(), standard()).value();

    const auto methyl = chem::defaultChemicalFactory()->constructMolecule(u"CH2"_s);
    const chem::Modify methylate({methyl, {{0, 5}}});
    const chem::MoleculeEntity blank = nullptr;
    const chem::ChainFragmenter cut({{blank, {{}, 0, 2, 5}, blank}});
    for (const auto& step : {molecule, methylate.transform(molecule), cut.transform(molecule)}) {
        out << Peptidoform::ofMolecule(step, natural(), standard())->toString() << ' '
            << QString::number(step.monoMass(), 'f', 4) << '\n';
    }
    //! [ProFormaMolecule]
}

void proFormaIons(QTextStream& out)
{
    //! [ProFormaIons]
    const Peptidoform peptidoform = Peptidoform::read(u"ES[Phospho#g1]S[#g1]K").value();
    const Backbone backbone = peptidoform.backbone(0, natural(), standard()).value();
    FragmentIons fragments;
    IonOptions options;
    options.series = {Series::B};
    if (fragments.assign(backbone, options))
        return;
    for (qsizetype ion = 0; ion < std::ssize(fragments.mz()); ++ion) {
        out << fragments.label(backbone, ion) << ' '
            << QString::number(fragments.mz()[std::size_t(ion)], 'f', 4) << '\n';
    }
    //! [ProFormaIons]
}
