// The digest of texts, proved on the clips of the same rule and on FASTA text as it comes.

#include "../common/Digest.h"
#include "../common/Fasta.h"
#include "Recipes.h"

namespace {

const QRegularExpression trypsin(u"(?<=[KR])(?!P)"_s);

/// Where the clips of the same rule end: the way that takes the square of the length.
QList<qsizetype> placesOfClips(const QString& sequence)
{
    const auto factory = defaultChemicalFactory();
    const Chain chain = constructPeptideChain(u"A"_s, u""_s, sequence, factory.data());
    const MoleculeEntity protein =
        constructProteinFromChains(u"example"_s, {chain}, {}, {}, nullptr);
    const QList<MoleculeEntity> clips = generateClips(
        protein, nullptr, ClipOptions::createClipByResidue({u"[KR](?!P)"_s}, {QString()}));
    QList<qsizetype> places = {0, sequence.size()};
    for (qsizetype i = 1; i < clips.size(); ++i) { // the first clip is the whole chain
        const QList<Chain> pieces = clips.at(i).chains();
        const ParentChainLocus locus = pieces.first().parentLocus();
        places << locus.start - 1 << locus.end - 1;
    }
    std::sort(places.begin(), places.end());
    places.erase(std::unique(places.begin(), places.end()), places.end());
    return places;
}

/// The peptides without missed cleavages, one behind the other.
QString joined(const QString& sequence)
{
    QString text;
    const QList<Peptide> peptides = digest(sequence, trypsin, 0);
    for (const Peptide& peptide : peptides)
        text += peptide.sequence;
    return text;
}

void require(bool isTrue, const QString& what, QTextStream& out)
{
    out << (isTrue ? "ok " : "FAILED ") << what << '\n';
}

QList<FastaEntry> entriesOf(QString text)
{
    QTextStream stream(&text);
    return readFasta(stream);
}

} // namespace

void digestProved(QTextStream& out)
{
    const QList<QString> sequences = {u"MKWVTFRPISLLFLFSSAYSR"_s,
                                      u"KKRRKPKR"_s,
                                      u"GASTEDQN"_s,
                                      u"KPRPKPRP"_s,
                                      u"KAKAKRAPRA"_s,
                                      u"K"_s};
    for (const QString& sequence : sequences)
        require(cutPlaces(sequence, trypsin) == placesOfClips(sequence), sequence, out);

    const QString odd = u"MKwUxKRB*ZKP-7R\u00E4K "_s;
    require(joined(odd) == odd, u"odd letters are all in one peptide"_s, out);
    require(digest(QString(), trypsin, 2).isEmpty(), u"nothing gives no peptides"_s, out);

    const auto windows = entriesOf(u">a b\r\nMK\r\nga\r\n\r\n;no letters\r\n>c\r\nRR*\r\n"_s);
    require(windows.size() == 2 && windows[0].name == u"a" && windows[0].sequence == u"MKGA" &&
                windows[1].sequence == u"RR",
            u"line ends of Windows, small letters, a comment, a stop"_s, out);
    const auto bare = entriesOf(u"MK GA\nRR"_s);
    require(bare.size() == 1 && bare[0].sequence == u"MKGARR", u"no heading, blanks"_s, out);
    require(entriesOf(u"\n\n"_s).isEmpty(), u"empty lines"_s, out);
    require(unknownLetters(u"MUXK*bz"_s, *defaultChemicalFactory()) ==
                QList<qsizetype>{2, 3, 5, 6, 7},
            u"positions of unknown letters"_s, out);
}
