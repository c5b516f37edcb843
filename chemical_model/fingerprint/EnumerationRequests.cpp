#include "Families.h"

#include <QDataStream>
#include <QDebug>
#include <QIODevice>
#include <QMetaEnum>
#include <QMetaType>

#include <limits>

using namespace chem;

namespace {

constexpr int endOfValues = 20;

template <typename Enumeration>
void askValue(Answers* answers, int number)
{
    const auto value = static_cast<Enumeration>(number);
    QString text;
    QDebug(&text) << value;
    QByteArray bytes;
    QDataStream writer(&bytes, QIODevice::WriteOnly);
    writer << value;
    Enumeration back = Enumeration::Unknown;
    QDataStream reader(&bytes, QIODevice::ReadOnly);
    reader >> back;
    answers->add("value", number, text.trimmed(), bytes.toHex().constData(), back == value);
}

template <typename Enumeration>
void askEnumeration(Answers* answers, const QMetaObject& metaObject)
{
    answers->add("staticMetaObject", metaObject.className(), metaObject.enumeratorCount(),
                 metaObject.methodCount(), metaObject.propertyCount());
    const QMetaEnum enumerators = metaObject.enumerator(0);
    answers->add("enumerator", enumerators.name(), enumerators.scope(), enumerators.isScoped(),
                 enumerators.keyCount());
    for (int i = 0; i < enumerators.keyCount(); ++i)
        answers->add("key", enumerators.key(i), enumerators.value(i));
    answers->add("QMetaType", QMetaType::fromType<Enumeration>().name());
    for (int number = -1; number < endOfValues; ++number)
        askValue<Enumeration>(answers, number);
    askValue<Enumeration>(answers, std::numeric_limits<int>::max());
    askValue<Enumeration>(answers, std::numeric_limits<int>::min());
}

} // namespace

void askEnumerations(Answers* answers)
{
    askEnumeration<MoleculeType>(answers, ZEL_QEnumsMoleculeType::staticMetaObject);
    askEnumeration<FragmentType>(answers, ZEL_QEnumsFragmentType::staticMetaObject);
}
