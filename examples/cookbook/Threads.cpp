#include "Recipes.h"

#include <future>
#include <vector>

void threads(QTextStream& out)
{
    //! [Threads]
    // Every const function of a factory may run in many threads at once, without a lock.
    const auto factory = defaultChemicalFactory();
    const QList<QString> sequences = {u"DRVYIHPF"_s, u"RPPGFSPFR"_s, u"YGGFM"_s, u"CYIQNCPLG"_s};

    std::vector<std::future<double>> masses;
    for (const QString& sequence : sequences) {
        masses.push_back(std::async(std::launch::async, [factory, sequence] {
            return factory->constructLinearPeptideComplex(sequence)->monoMass();
        }));
    }
    for (std::size_t i = 0; i < masses.size(); ++i) {
        out << sequences.at(static_cast<qsizetype>(i)) << ' '
            << QString::number(masses[i].get(), 'f', 4) << " Da\n";
    }
    //! [Threads]
}
