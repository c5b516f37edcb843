#include "StructuredBuilders.h"

#include "ChemicalFactory.h"
#include "core/MoleculeSum.h"
#include "structure/Totals.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace chem {

namespace {

/// A chain's residues, summed on their own.
Molecule sumOfResidues(const Chain& chain)
{
    MoleculeSum sum;
    for (const MoleculeEntity& residue : chain.residues())
        sum.add(totalsOf(residue));
    return sum.result();
}

/// Each letter of a text once, and which of them stands where.
struct DistinctLetters
{
    explicit DistinctLetters(const QString& text)
    {
        const auto last = std::max_element(text.cbegin(), text.cend());
        std::vector<qsizetype> places(last == text.cend() ? 0 : last->unicode() + 1, unseen);
        order.reserve(text.size());
        for (const QChar letter : text) {
            qsizetype& place = places[letter.unicode()];
            if (place == unseen) {
                place = letters.size();
                letters.append(letter);
            }
            order.append(place);
        }
    }

    static constexpr qsizetype unseen = -1;
    QString letters;
    QList<qsizetype> order;
};

} // namespace

Chain constructPeptideChain(const QString& name, const QString& code, const QString& sequence,
                            const ChemicalFactory* factory)
{
    // Equal residues of a chain share one entity: a protein needs 20 of them, however long it is.
    const DistinctLetters distinct(sequence);
    QList<QSharedPointer<const AminoAcid>> aminoAcids;
    NamedMolecule nTerminal;
    NamedMolecule cTerminal;
    factory->parseAminoAcidSequence(distinct.letters, &aminoAcids, &nTerminal, &cTerminal);
    QList<MoleculeEntity> kinds;
    kinds.reserve(aminoAcids.size());
    for (const auto& aminoAcid : std::as_const(aminoAcids))
        kinds.append(*aminoAcid);

    QList<MoleculeEntity> residues;
    residues.reserve(sequence.size() + 2);
    residues.append(std::move(nTerminal));
    for (const qsizetype kind : distinct.order)
        residues.append(kinds.at(kind));
    residues.append(std::move(cTerminal));
    return Chain(name, code, residues, MoleculeType::Peptide, ParentChainLocus());
}

Chain constructOligoNucleotideChain(const QString& name, const QString& code,
                                    const QString& sequence, const ChemicalFactory* factory)
{
    QList<QSharedPointer<const Nucleotide>> nucleotides;
    NamedMolecule fivePrime;
    NamedMolecule threePrime;
    factory->parseNucleotideSequence(sequence, &nucleotides, &fivePrime, &threePrime);

    QList<MoleculeEntity> residues;
    residues.reserve(3 * nucleotides.size() + 2);
    residues.append(std::move(fivePrime));
    for (const auto& nucleotide : std::as_const(nucleotides)) {
        residues.append(nucleotide->ribose);
        residues.append(nucleotide->nucleobase);
        residues.append(nucleotide->phosphate);
    }
    residues.append(std::move(threePrime));
    return Chain(name, code, residues, MoleculeType::OligoNucleotide, ParentChainLocus());
}

MoleculeEntity constructOligoNucleotide(const QString& name, const QString& code,
                                        const QString& sequence, const ChemicalFactory* factory)
{
    return constructStructuredMolecule(
        name, code, {constructOligoNucleotideChain(name, code, sequence, factory)}, {}, {},
        MoleculeType::OligoNucleotide);
}

MoleculeEntity constructProteinFromChains(const QString& name, const QList<Chain>& chains,
                                          const QList<Modification>& modifications,
                                          const QList<Link>& links, const ChemicalFactory*)
{
    return constructStructuredMolecule(name, QString(), chains, modifications, links,
                                       MoleculeType::Protein);
}

MoleculeEntity constructStructuredMolecule(const QString& name, const QString& code,
                                           const QList<Chain>& chains,
                                           const QList<Modification>& modifications,
                                           const QList<Link>& links, MoleculeType type)
{
    MoleculeSum sum;
    for (const Chain& chain : chains)
        sum.add(sumOfResidues(chain));
    for (const Link& link : links)
        sum.add(totalsOf(link.entity()));
    for (const Modification& modification : modifications)
        sum.add(totalsOf(modification.entity()));

    StructuredMolecule molecule;
    writeTotals(sum.result(), &molecule);
    molecule.name = name;
    molecule.code = code;
    molecule.type = type;
    molecule.chains = chains;
    molecule.links = links;
    molecule.modifications = modifications;
    return molecule;
}

} // namespace chem
