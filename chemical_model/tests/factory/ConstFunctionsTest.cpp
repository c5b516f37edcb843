#include "ConstCalls.h"
#include "OwnedData.h"
#include "TestPrinters.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <span>

/// \file
/// A function that promises to write nothing leaves every text, list and map of what it was handed
/// where it is, also where these are shared: a hidden write would be a race as soon as two threads
/// call it. No thread is needed to see it.

using namespace Qt::StringLiterals;

namespace {

/// What differs before and after, as `calls` sees it, by the path to it.
template <typename T, typename Call>
QStringList written(T& object, const Call& call)
{
    const OwnedData before(u"object"_s, object);
    call(object);
    return before.differences(OwnedData(u"object"_s, object));
}

/// Which of the calls write to what they share, and where.
QStringList writers(std::span<const ConstCall> calls)
{
    const SharedObjects shared;
    const QStringList paths = written(shared, [calls](const SharedObjects& objects) {
        for (const ConstCall& function : calls)
            function.call(objects);
    });
    if (paths.isEmpty())
        return {};
    if (calls.size() == 1)
        return {QString::fromStdString(calls.front().function) + u" writes to " +
                paths.join(u", "_s)};
    const std::size_t half = calls.size() / 2;
    return writers(calls.first(half)) + writers(calls.subspan(half));
}

TEST(ConstFunctions, LeaveAllThatIsSharedWhereItIs)
{
    EXPECT_EQ(writers(constCalls()), QStringList());
}

TEST(ConstFunctions, EntityKeepsTheDataThatItWasMadeOf)
{
    const SharedObjects shared;
    const OwnedData entity(u"molecule"_s, shared.entities[0]);
    QStringList unequal = OwnedData(u"molecule"_s, shared.structured).differences(entity);
    // The value has its masses, and the entity its own address.
    unequal.removeOne(u"molecule.averageMass"_s);
    unequal.removeOne(u"molecule.monoMass"_s);
    unequal.removeOne(u"molecule"_s);
    EXPECT_EQ(unequal, QStringList());
}

TEST(ConstFunctionsRecord, NamesTheFunctionAndTheText)
{
    const ConstCall hidden("hidden", [](const SharedObjects& shared) {
        shared.peptide.residues[1]->code.data(); // the pointer is to a residue that is not const
    });
    const ConstCall calls[] = {constCalls()[0], hidden, constCalls()[1]};
    EXPECT_EQ(writers(calls), QStringList({u"hidden writes to object.peptide.residues[1].code"_s}));
}

TEST(ConstFunctionsRecord, NoticesTextBehindConstReferenceThatParts)
{
    const SharedObjects shared;
    EXPECT_EQ(written(shared.peptide, [](auto& peptide) { peptide.residues[1]->code.data(); }),
              QStringList({u"object.residues[1].code"_s}));
    EXPECT_EQ(written(shared.strand, [](auto& strand) { strand.residues[0]->name.begin(); }),
              QStringList({u"object.residues[0].name"_s}));
}

TEST(ConstFunctionsRecord, NoticesListsAndMapsThatPart)
{
    SharedObjects shared;
    EXPECT_EQ(written(shared.peptide.residues, [](auto& residues) { residues.data(); }),
              QStringList({u"object"_s}));
    EXPECT_EQ(written(shared.before, [](auto& texts) { texts.first(); }),
              QStringList({u"object"_s}));
    EXPECT_EQ(written(shared.factory, [](auto& factory) { factory.buildingBlocks.begin(); }),
              QStringList({u"object"_s, u"object.buildingBlocks"_s}));
    EXPECT_EQ(written(shared.factory, [](auto& factory) { factory.isotopes.last().name.data(); }),
              QStringList({u"object"_s, u"object.isotopes"_s, u"object.isotopes[292].name"_s}));
}

TEST(ConstFunctionsRecord, NoticesNumbersAndReplacedParts)
{
    SharedObjects shared;
    EXPECT_EQ(written(shared.flatFragments, [](auto& list) { list[0].monoMass += 1.0; }),
              QStringList({u"object"_s, u"object[0].monoMass"_s}));
    EXPECT_EQ(written(shared.modify, [](auto& step) { step = chem::Modify(1.0); }),
              QStringList({u"object"_s}));
    EXPECT_EQ(written(shared.structured, [](auto& molecule) { molecule.links.clear(); }).first(),
              u"object.links"_s);
}

TEST(ConstFunctionsRecord, SeesNoWriteInReading)
{
    const SharedObjects shared;
    EXPECT_GT(OwnedData(u"shared"_s, shared).size(), 5000U);
    EXPECT_EQ(written(shared, [](auto&) {}), QStringList());
    EXPECT_EQ(written(shared, [](auto& objects) { return SharedObjects(objects); }), QStringList());
}

QString textOf(const QString& file)
{
    QFile source(QStringLiteral(CHEMICAL_MODEL_DIR "/") + file);
    EXPECT_TRUE(source.open(QIODevice::ReadOnly)) << file.toStdString();
    return QString::fromUtf8(source.readAll());
}

/// How many calls the table has of each function.
QMap<QString, int> calledFunctions()
{
    QMap<QString, int> functions;
    for (const ConstCall& function : constCalls())
        ++functions[QString::fromStdString(function.function)];
    return functions;
}

/// The exported functions that are const or take something const, with the number of overloads.
QMap<QString, int> exportedConstFunctions()
{
    const QStringList symbols = textOf(u"exported-symbols.txt"_s).split(u'\n');
    QMap<QString, int> functions;
    for (const QString& symbol : symbols) {
        const bool isConst = symbol.endsWith(u") const") || symbol.contains(u" const&") ||
                             symbol.contains(u" const*");
        if (isConst)
            ++functions[symbol.first(symbol.indexOf(u'(')).remove(0, 6)]; // behind "chem::"
    }
    return functions;
}

/// The const functions of the classes in a public header, those in line among them.
QStringList constFunctionsOf(const QString& header)
{
    static const QRegularExpression comment(u"///?.*"_s);
    static const QRegularExpression declaration(
        u"(?:class|struct) ZEL_CHEMICAL_MODEL_EXPORT (\\w+)|NO_EXPORT[^;]*;|"
        "(operator\\S{1,2}|\\b\\w+)\\([^;{}()]*\\) const\\b"_s);
    QStringList functions;
    QString scope;
    auto found = declaration.globalMatch(textOf(u"src/"_s + header).remove(comment));
    while (found.hasNext()) {
        const QRegularExpressionMatch match = found.next();
        if (!match.captured(1).isEmpty())
            scope = match.captured(1);
        if (!match.captured(2).isEmpty())
            functions.append(scope + u"::" + match.captured(2));
    }
    return functions;
}

TEST(ConstFunctionsTable, HoldsEveryExportedFunctionThatIsConstOrTakesConst)
{
    const QMap<QString, int> called = calledFunctions();
    const QMap<QString, int> exported = exportedConstFunctions();
    EXPECT_GT(exported.size(), 70);
    for (auto function = exported.cbegin(); function != exported.cend(); ++function)
        EXPECT_GE(called.value(function.key()), function.value()) << function.key().toStdString();
}

TEST(ConstFunctionsTable, HoldsEveryConstFunctionOfThePublicHeaders)
{
    static const QRegularExpression include(u"#include \"(\\w+\\.h)\""_s);
    const QMap<QString, int> called = calledFunctions();
    QStringList declared;
    auto headers = include.globalMatch(textOf(u"src/ChemicalModel.h"_s));
    while (headers.hasNext())
        declared += constFunctionsOf(headers.next().captured(1));
    EXPECT_GT(declared.size(), 70);
    for (const QString& function : std::as_const(declared))
        EXPECT_TRUE(called.contains(function)) << function.toStdString();
}

} // namespace
