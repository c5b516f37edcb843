// Works out masses, fragments and envelopes of many proteins on all cores with one shared factory,
// and says how many a second it manages and how well that scales.
//
//   proteome [PROTEINS]

#include <ChemicalModel.h>

#include <QElapsedTimer>
#include <QTextStream>
#include <QThread>
#include <QThreadPool>
#include <QtConcurrentMap>

#include <algorithm>
#include <random>

using namespace Qt::StringLiterals;

namespace {

constexpr int defaultProteins = 400;
constexpr int barLength = 40;

struct Summary
{
    double monoMass = 0.0;
    qsizetype fragments = 0;
};

/// Proteins of 100 to 500 residues with residues as often as they are in nature, about.
QStringList randomProteins(int count)
{
    const QString residues =
        u"AAAAAAAALLLLLLLLLGGGGGGGVVVVVVVEEEEEEESSSSSSIIIIIIKKKKKKRRRRRDDDDDTTTTT"
        u"PPPPPNNNNQQQQFFFFYYYMMHHCW"_s;
    std::mt19937 generator(2026);
    std::uniform_int_distribution<qsizetype> length(100, 500);
    std::uniform_int_distribution<qsizetype> residue(0, residues.size() - 1);
    QStringList proteins;
    for (int i = 0; i < count; ++i) {
        QString sequence(length(generator), QChar());
        for (QChar& letter : sequence)
            letter = residues[residue(generator)];
        proteins.append(sequence);
    }
    return proteins;
}

Summary analyse(const chem::ChemicalFactory& factory, const QString& sequence)
{
    const auto complex = factory.constructLinearPeptideComplex(sequence);
    QList<chem::SimpleFragment> fragments;
    chem::generateLinearFragments(*complex, fragments);
    QList<QPointF> envelope;
    factory.generateIsotopeEnvelope(*complex, 20, &envelope, true);
    return {complex->monoMass(), fragments.size()};
}

void drawBar(int done, int total)
{
    QTextStream out(stderr);
    const int filled = barLength * done / total;
    out << "\r[" << QString(filled, u'#') << QString(barLength - filled, u'.') << "] " << done
        << '/' << total;
}

/// Proteins a second on `threads` threads.
double throughput(const QStringList& proteins, int threads)
{
    const auto factory = chem::defaultChemicalFactory();
    QThreadPool pool;
    pool.setMaxThreadCount(threads);
    const int total = static_cast<int>(proteins.size());
    QElapsedTimer timer;
    timer.start();
    const QFuture<Summary> summaries =
        QtConcurrent::mapped(&pool, proteins, [&factory](const QString& sequence) {
            return analyse(*factory, sequence);
        });
    while (!summaries.isFinished()) {
        drawBar(summaries.progressValue(), total);
        QThread::msleep(20);
    }
    drawBar(total, total);
    return total / (static_cast<double>(timer.nsecsElapsed()) * 1e-9);
}

} // namespace

int main(int argc, char* argv[])
{
    const int count = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : defaultProteins;
    const QStringList proteins = randomProteins(std::max(count, 1));
    const int cores = QThread::idealThreadCount();
    QTextStream out(stdout);

    const double alone = throughput(proteins, 1);
    const double together = throughput(proteins, cores);
    out << "\n1 thread:  " << qRound(alone) << " proteins a second\n"
        << cores << " threads: " << qRound(together) << " proteins a second, "
        << QString::number(together / alone, 'f', 2) << " times as many\n";
    return 0;
}
