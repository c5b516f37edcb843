#include "Recipes.h"

#include <future>
#include <vector>

void threads(QTextStream& out)
{
    const auto factory = defaultChemicalFactory();
    const QList<QString> sequences = {u"DRVYIHPF"_s, u"RPPGFSPFR"_s};

    //! [Threads]
    std::vector<std::future<double>> masses;
    for (const QString& sequence : sequences) {
        masses.push_back(std::async(std::launch::async, [factory, sequence] {
            return factory->constructLinearPeptideComplex(sequence)->monoMass();
        }));
    }
    //! [Threads]
    for (std::size_t i = 0; i < masses.size(); ++i)
        out << sequences.at(static_cast<qsizetype>(i)) << ' ' << daltons(masses[i].get()) << '\n';
}
