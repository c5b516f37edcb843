#include <IonModel.h>

#include <QTextStream>

using namespace Qt::StringLiterals;

int main()
{
    const auto peptide = ions::Backbone::peptide(u"EGVNDNEEGFFSAR", ions::ResidueTable());
    ions::IonOptions options;
    options.series = {ions::Series::Y};
    ions::FragmentIons fragments;
    if (!peptide || fragments.assign(*peptide, options)) {
        return 1;
    }
    QTextStream out(stdout);
    for (const qsizetype ion : {0, 1, 2}) {
        out << fragments.label(*peptide, ion) << ' '
            << QString::number(fragments.mz()[std::size_t(ion)], 'f', 4) << '\n';
    }
    return 0;
}
