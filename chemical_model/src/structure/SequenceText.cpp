#include "structure/SequenceText.h"

#include "ChemicalFactory.h"
#include "StructuredMolecule.h"
#include "structure/ResiduePosition.h"

#include <QHash>

using namespace Qt::StringLiterals;

namespace chem {

namespace {

/// Link numbers, counted from 1, by the residue positions that they touch.
using LinkNumbers = QHash<ResiduePosition, QList<qsizetype>>;

LinkNumbers numberLinks(const QList<Link>& links)
{
    LinkNumbers numbers;
    qsizetype number = 0;
    for (const Link& link : links) {
        ++number;
        const Link::Connection connection = link.connection();
        numbers[connection.first].append(number);
        numbers[connection.second].append(number);
    }
    return numbers;
}

/// One pair of empty brackets for each modification: the code of a modification as an entity is
/// empty, and the code of the group inside it is not shown.
void appendModifications(const QList<Modification>& modifications, QString* text)
{
    for (qsizetype i = 0; i < modifications.size(); ++i)
        *text += "[]"_L1;
}

void appendResidueText(const MoleculeEntity& residue, const QList<qsizetype>& linkNumbers,
                       QString* text)
{
    *text += residue.code();
    appendModifications(residue.modifications(), text);
    for (const qsizetype number : linkNumbers)
        *text += "[*"_L1 + QString::number(number) + u']';
}

} // namespace

QString sequenceText(const StructuredMolecule& molecule)
{
    const LinkNumbers linkNumbers = numberLinks(molecule.links);
    QString text;
    int chainIndex = 0;
    for (const Chain& chain : molecule.chains) {
        if (chainIndex > 0)
            text += ChemicalFactory::ChainDelimeter;
        int residueIndex = 0;
        for (const MoleculeEntity& residue : chain.residues()) {
            appendResidueText(residue, linkNumbers.value({chainIndex, residueIndex}), &text);
            ++residueIndex;
        }
        ++chainIndex;
    }
    appendModifications(molecule.modifications, &text);
    return text;
}

} // namespace chem
