#include "CommandNames.h"
#include "RunZel.h"
#include "TestFiles.h"

#include <QDir>

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

/// A line of a shell and all that it writes.
struct Example
{
    QString line;
    QByteArray output;
};

/// The examples of a golden file.
std::vector<Example> readExamples(const QString& name)
{
    std::vector<Example> examples;
    const QByteArray content = contentOf(u"golden/%1.txt"_s.arg(name));
    for (const QByteArray& line : content.chopped(content.endsWith('\n')).split('\n')) {
        if (line.startsWith("$ "))
            examples.push_back({QString::fromUtf8(line.sliced(2)), {}});
        else if (!examples.empty())
            examples.back().output += line + '\n';
    }
    return examples;
}

/// The names of the golden files.
std::vector<std::string> goldenFiles()
{
    std::vector<std::string> names;
    const QStringList files = QDir(testFile(u"golden"_s)).entryList({u"*.txt"_s}, QDir::Files);
    for (const QString& file : files)
        names.push_back(file.chopped(4).toStdString());
    return names;
}

} // namespace

class Golden : public testing::TestWithParam<std::string>
{
};

TEST_P(Golden, CommandsWriteWhatWasReviewed)
{
    const auto examples = readExamples(QString::fromStdString(GetParam()));
    ASSERT_FALSE(examples.empty());
    for (const Example& example : examples) {
        const ProgramRun run = runShell(u"cd '%1'; %2"_s.arg(testFile(u"data"_s), example.line));
        EXPECT_EQ(run.output.toStdString(), example.output.toStdString())
            << example.line.toStdString();
        EXPECT_EQ(run.errors.toStdString(), std::string()) << example.line.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(Files, Golden, testing::ValuesIn(goldenFiles()), [](const auto& file) {
    std::string name = file.param;
    std::erase(name, '-'); // no letter of a test's name
    return name;
});

// A command without reviewed output would be a promise that nothing keeps.
TEST(GoldenFiles, ShowEachCommand)
{
    for (const QString& command : commandNames()) {
        const auto examples = readExamples(command);
        ASSERT_FALSE(examples.empty()) << command.toStdString();
        EXPECT_TRUE(examples[0].line.contains(u"zel "_s + command));
    }
}
