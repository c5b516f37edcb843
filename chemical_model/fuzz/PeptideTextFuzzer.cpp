// Any text is a peptide. Reads the input as Latin-1, lays it out and breaks it in both ways, and
// compares the results with one another and with sums from scratch.

#include "FragmentLists.h"
#include "RequireSame.h"

using namespace Qt::StringLiterals;

namespace {

using chem::ChemicalFactory;
using chem::Molecule;

/// The fragments grow with the square of the length.
constexpr qsizetype maximalLength = 48;

/// Natural isotopes, and one residue whose letter is not ASCII.
const ChemicalFactory& factory()
{
    static const QSharedPointer<const ChemicalFactory> shared = [] {
        const auto made = ChemicalFactory::construct(QString());
        made->setBuildingBlock(ChemicalFactory::AminoAcidBlock, u"é"_s, u"other"_s, u"C2H4"_s);
        return made;
    }();
    return *shared;
}

void checkTotal(const QString& text, const chem::MoleculeComplex& complex)
{
    QList<QSharedPointer<const chem::AminoAcid>> aminoAcids;
    chem::NamedMolecule nTerminal;
    chem::NamedMolecule cTerminal;
    factory().parseAminoAcidSequence(text, &aminoAcids, &nTerminal, &cTerminal);
    require(aminoAcids.size() == text.size(), "one amino acid for each character");

    Molecule total = nTerminal + cTerminal;
    for (const auto& aminoAcid : std::as_const(aminoAcids))
        total += *aminoAcid;
    requireSame(fields::fieldsOf(Molecule(complex)), fields::fieldsOf(total),
                "the total is the sum in order");
}

void checkLayout(const QString& text, const chem::MoleculeComplex& complex)
{
    const qsizetype size = text.size() + 2;
    require(complex.residues.size() == size, "two terminals around the residues");
    require(complex.sites.size() == size, "one list of sites for each residue");
    for (qsizetype i = 0; i < size; ++i) {
        const bool isTerminal = i == 0 || i == size - 1;
        require(complex.residues[i]->position == i, "residues know their positions");
        require(complex.sites[i].size() == (isTerminal ? 0 : 10), "ten sites for each monomer");
    }
}

void checkPlaces(const QString& text, const QList<chem::SimpleFragment>& fragments)
{
    for (const chem::SimpleFragment& fragment : fragments) {
        const bool isLeft = fragment.type <= chem::FragmentType::AB;
        require(fragment.position == (isLeft ? 0 : text.size() - fragment.sequence.size()),
                "a fragment knows where it starts");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString text = QString::fromLatin1(bytes.left(maximalLength));
    const auto complex = factory().constructLinearPeptideComplex(text);
    checkTotal(text, *complex);
    checkLayout(text, *complex);

    const QList<chem::SimpleFragment> flat = flatFragments(*complex);
    checkPlaces(text, flat);
    require(flat.size() == 10 * text.size(), "ten ions for each residue");
    require(sortedIons(flat) == sortedIons(richFragments(*complex)),
            "both generators agree to the last bit");
    return 0;
}
