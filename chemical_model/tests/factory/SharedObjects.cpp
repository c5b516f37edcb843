#include "SharedObjects.h"

using namespace Qt::StringLiterals;

namespace {

const OpenFactory& prototype()
{
    static const OpenFactory factory{QString()};
    return factory;
}

QList<QSharedPointer<chem::Fragment>> richFragmentsOf(const chem::MoleculeComplex& complex)
{
    QList<QSharedPointer<chem::Fragment>> fragments;
    prototype().generateLinearFragments(complex, &fragments);
    return fragments;
}

QList<chem::SimpleFragment> flatFragmentsOf(const chem::MoleculeComplex& complex)
{
    QList<chem::SimpleFragment> fragments;
    chem::generateLinearFragments(complex, fragments);
    return fragments;
}

chem::Nucleotide nucleotideOf(const OpenFactory& factory)
{
    const auto block = [&factory](const QString& formula, const QString& code) {
        return chem::NamedMolecule(factory.constructMolecule(formula), u"part "_s + code, code);
    };
    return {block(u"C4H3N2O2"_s, u"U"_s), block(u"C5H8O3"_s, u"r"_s), block(u"HPO3"_s, u"p"_s),
            u"uridine"_s, u"rU"_s};
}

/// A molecule without a formula, which is laid out from its letters at each question.
chem::MoleculeEntity withoutFormula(chem::MoleculeType type, const QString& residueCode)
{
    const chem::NamedMolecule residue(chem::Molecule(), QString(), residueCode);
    chem::StructuredMolecule molecule;
    molecule.type = type;
    molecule.chains = {chem::Chain(QString(), QString(), {residue, residue}, type, {})};
    return molecule;
}

/// A molecule of the chains and the rest whose residue 2 was modified by a step.
chem::MoleculeEntity modifiedProtein(const SharedObjects& shared)
{
    const chem::Modification placed(shared.molecule, {{0, 2}});
    return chem::Modify(placed).transform(chem::constructStructuredMolecule(
        shared.name, shared.code, shared.chains, shared.modifications, shared.links,
        chem::MoleculeType::Protein));
}

chem::StructuredMolecule structuredOf(const SharedObjects& shared)
{
    return {shared.formula,
            chem::MoleculeType::Protein,
            1.0,
            2.0,
            shared.chains,
            shared.links,
            shared.modifications,
            shared.name,
            shared.code,
            QString(),
            {chem::TransformationEntity(chem::Modify(1.0), shared.namedMolecule)}};
}

} // namespace

SharedObjects::SharedObjects()
    : factory(prototype())
    , formulaText(u"C6H12O6"_s)
    , lossText(u"O1H-2"_s)
    , peptideText(u"KG"_s)
    , strandText(u"rA*C"_s)
    , glycanText(u"HexNAc(1)Hex(2)"_s)
    , isotopeText(u"C13:99 C12:1"_s)
    , blockLabel(u"Sugar"_s)
    , name(u"a name"_s)
    , code(u"code"_s)
    , elements({u"C"_s, u"H"_s})
    , counts({6, 12})
    , formula(chem::ChemicalFactory::parseChemicalFormula(formulaText))
    , loss(chem::ChemicalFactory::parseChemicalFormula(lossText))
    , molecule(factory.constructMolecule(formulaText))
    , namedMolecule(molecule, u"glucose"_s, u"Glc"_s)
    , aminoAcid(chem::NamedMolecule(molecule, u"residue"_s, u"Z"_s))
    , nucleotide(nucleotideOf(factory))
    , peptide(*factory.constructLinearPeptideComplex(peptideText))
    , strand(*factory.constructLinearOligoComplex(strandText))
    , richFragments(richFragmentsOf(peptide))
    , flatFragments(flatFragmentsOf(peptide))
    , chains({chem::constructPeptideChain(u"A"_s, u"a"_s, peptideText, &factory),
              chem::constructOligoNucleotideChain(u"B"_s, u"b"_s, u"AC"_s, &factory)})
    , links({chem::Link(factory.modifyMolecule({}, u"H-2"_s, 1), {{0, 1}, {1, 2}})})
    , modifications({chem::Modification(namedMolecule, {{0, 1}, {0, 2}})})
    , locus{u"parent"_s, 0, 1, 3}
    , structured(structuredOf(*this))
    , entities({structured, molecule, namedMolecule, aminoAcid, 42.5, 42, nullptr,
                modifications.constFirst(), withoutFormula(chem::MoleculeType::Peptide, u"G"_s),
                withoutFormula(chem::MoleculeType::OligoNucleotide, u"A"_s)})
    , protein(modifiedProtein(*this))
    , modify(modifications.constFirst())
    , unmodify(modifications.constFirst())
    , establishLink(namedMolecule, {{0, 1}, {1, 1}})
    , pieces({{1.0, locus, namedMolecule}})
    , chainFragmenter(pieces)
    , history({chem::TransformationEntity(modify, protein),
               chem::TransformationEntity(unmodify, protein),
               chem::TransformationEntity(establishLink, protein),
               chem::TransformationEntity(chainFragmenter, protein)})
    , before({u"[KR]"_s, QString()})
    , after({QString(), u"G"_s})
    , observedMasses({1.0, protein.averageMass(), 1e6})
    , matchingParameters{{10.0, 1}, {}, {}, {}}
{
    factory.parseNucleotideSequence(strandText, &nucleotides, &fivePrime, &threePrime);
    clipOptions = {chem::ClipOptions::createNoClipping(), chem::ClipOptions::createClipAll(),
                   chem::ClipOptions::createClipByDepth(1, 1, 1, 1),
                   chem::ClipOptions::createClipByResidue(before, after)};
}
