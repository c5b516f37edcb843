#include "ConstCalls.h"
#include "ManyThreads.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

#include <set>

/// \file
/// Every const function of the library, and every function that takes something const, on shared
/// objects from several threads. Only the thread sanitizer sees for certain that none of them
/// writes.

using namespace Qt::StringLiterals;
using manyThreads::atOnce;

namespace ions {

namespace {

std::string headerOf(const std::string& function)
{
    return function.substr(0, function.find("::"));
}

std::set<std::string> allHeaders()
{
    std::set<std::string> headers;
    for (const ConstCall& function : constCalls())
        headers.insert(headerOf(function.function));
    return headers;
}

/// The functions of one header.
class RacesOfConstFunctions : public testing::TestWithParam<std::string>
{
};

TEST_P(RacesOfConstFunctions, OnFreshObjects)
{
    for (int round = 0; round < manyThreads::longRounds; ++round) {
        const SharedObjects shared;
        const SharedObjects copy = shared; // what is shared has to part before it is written
        for (const ConstCall& function : constCalls()) {
            if (headerOf(function.function) == GetParam())
                atOnce([&] { function.call(shared); });
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Threads, RacesOfConstFunctions, testing::ValuesIn(allHeaders()),
                         [](const auto& header) { return header.param; });

/// Each test is a process of its own, so that this is the first use of everything.
TEST(ConstFunctionsThreads, FirstUseOfAllTablesFromAllAtOnce)
{
    atOnce([] {
        const SharedObjects own;
        for (const ConstCall& function : constCalls())
            function.call(own);
    });
}

/// The const functions that a header declares, less an operator and what only a class itself calls.
QStringList constFunctionsOf(const QString& header)
{
    static const QRegularExpression declaration(u"\\b(\\w+)\\([^;{}()]*\\) const\\b"_s);
    static const QSet<QString> others = {u"Digest::listed"_s, u"Ionization::size"_s,
                                         u"Parsed::bool"_s, u"ResidueTable::unknownLetter"_s};
    QFile file(QStringLiteral(ION_MODEL_SOURCE_DIR "/") + header + u".h"_s);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << header.toStdString();
    QStringList functions;
    auto matches = declaration.globalMatch(QString::fromUtf8(file.readAll()));
    while (matches.hasNext()) {
        const QString function = header + u"::"_s + matches.next().captured(1);
        if (!others.contains(function))
            functions.append(function);
    }
    return functions;
}

TEST(ConstFunctionsThreads, EveryConstFunctionOfTheHeadersIsCalled)
{
    QSet<QString> called;
    for (const ConstCall& function : constCalls())
        called.insert(QString::fromLatin1(function.function));
    int declared = 0;
    for (const QString& file :
         QDir(QStringLiteral(ION_MODEL_SOURCE_DIR)).entryList({u"*.h"_s}, QDir::Files)) {
        for (const QString& function : constFunctionsOf(file.chopped(2))) {
            EXPECT_TRUE(called.contains(function)) << function.toStdString();
            ++declared;
        }
    }
    EXPECT_GT(declared, 70);
}

} // namespace

} // namespace ions
