// A walk through the library on real molecules.

#include "Tour.h"

using namespace Qt::StringLiterals;

QTextStream& out()
{
    static QTextStream stream(stdout);
    return stream;
}

void printTitle(const QString& title)
{
    out() << '\n' << title << '\n' << QString(title.size(), u'=') << '\n';
}

QString column(double value, int decimals)
{
    return QString::number(value, 'f', decimals).rightJustified(10);
}

void printBesidePublished(const QString& what, double computed, double published, int decimals)
{
    out() << "  " << what.leftJustified(28) << QString::number(computed, 'f', decimals)
          << "   published " << QString::number(published, 'f', decimals) << "   difference "
          << QString::number(computed - published, 'f', decimals) << '\n';
}

int main()
{
    tourMolecules();
    tourIsotopes();
    tourOligonucleotides();
    tourProteins();
    tourIons();
    out().flush();
    return 0;
}
