#pragma once

#include <ChemicalModel.h>

#include <QByteArray>
#include <QList>
#include <QSharedPointer>
#include <QString>

#include <utility>

/// One request with its results, as a line of ASCII text that is the same on every platform.
///
/// Numbers are written so that no bit is lost: a whole number of up to nine digits as such, any
/// other `double` as the sixteen hexadecimal digits of its bits, and what is not a number as "nan",
/// since processors differ in the bits of that. Texts stand in quotes with `\u` escapes; null and
/// empty ones are the same to this library. Lists stand in brackets, structures in parentheses.
/// No address and no order of a hash table gets in.
class Line
{
public:
    explicit Line(const char* request)
        : m_text(request)
    {
    }

    const QByteArray& text() const { return m_text; }

    Line& operator<<(bool value);
    Line& operator<<(int value) { return *this << static_cast<qint64>(value); }
    Line& operator<<(qint64 value);
    Line& operator<<(double value);
    Line& operator<<(const char* word);
    Line& operator<<(QChar character) { return *this << QString(character); }
    Line& operator<<(const QString& text);

    Line& operator<<(const chem::ChemicalFormula& formula);
    Line& operator<<(const chem::Molecule& molecule);
    Line& operator<<(const chem::NamedMolecule& molecule);
    Line& operator<<(const chem::Nucleotide& nucleotide);
    Line& operator<<(const chem::ComplexResidue& residue);
    Line& operator<<(const chem::FragmentationSite& site);
    Line& operator<<(const chem::Fragment& fragment);
    Line& operator<<(const chem::SimpleFragment& fragment);
    Line& operator<<(chem::FragmentType type) { return *this << static_cast<int>(type); }

    Line& operator<<(const chem::MoleculeEntity& entity);
    Line& operator<<(chem::MoleculeType type) { return *this << static_cast<int>(type); }
    Line& operator<<(chem::TransformationType type) { return *this << static_cast<int>(type); }
    Line& operator<<(const chem::ParentChainLocus& locus);
    Line& operator<<(const chem::Chain& chain);
    Line& operator<<(const chem::Link& link);
    Line& operator<<(const chem::Modification& modification);
    Line& operator<<(const chem::TransformationEntity& step);
    Line& operator<<(const chem::ObservedMassEntity& observed);

    template <typename T>
    Line& operator<<(const QSharedPointer<T>& pointer)
    {
        return pointer ? *this << *pointer : *this << "null";
    }

    template <typename A, typename B>
    Line& operator<<(const std::pair<A, B>& pair)
    {
        return *this << "(" << pair.first << pair.second << ")";
    }

    template <typename T>
    Line& operator<<(const QList<T>& list)
    {
        *this << "[";
        for (const T& value : list)
            *this << value;
        return *this << "]";
    }

private:
    QByteArray m_text;
};
