#include "readers/InputFile.h"

#include <cstdio>
#include <vector>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

constexpr QStringView standardInput = u"-";

bool open(const QString& name, QFile* file)
{
    if (name == standardInput)
        return file->open(stdin, QIODevice::ReadOnly);
    file->setFileName(name);
    return file->open(QIODevice::ReadOnly);
}

/// Hands on a text that was decoded as a whole. What was no UTF-8 has become U+FFFD, which stands
/// for a lost character wherever it comes from.
void takeText(const Place& place, const QString& text, Complaints* complaints,
              const std::function<void(const Place&, const QString&)>& take)
{
    const qsizetype lost = text.indexOf(QChar(QChar::ReplacementCharacter));
    if (lost < 0)
        take(place, text);
    else
        complaints->report(place, {u"expected a character in UTF-8"_s, lost});
}

} // namespace

void withLines(const QString& name, Complaints* complaints,
               const std::function<void(const QString&, LineReader*)>& read)
{
    if (name.isEmpty()) {
        complaints->report({u"''"_s}, {u"expected the name of a file"_s, 0});
        return;
    }
    const QString source = name == standardInput ? u"stdin"_s : name;
    QFile file;
    if (!open(name, &file)) {
        complaints->report({source},
                           {u"expected a file that can be read: "_s + file.errorString(), 0});
        return;
    }
    LineReader lines(&file);
    read(source, &lines);
    if (file.error() != QFileDevice::NoError) {
        complaints->report({source, lines.number() + 1},
                           {u"expected more of the file: "_s + file.errorString(), 0});
    }
}

void forEachText(const QStringList& arguments, Complaints* complaints,
                 const std::function<void(const Place&, const QString&)>& take)
{
    qint64 number = 0;
    for (const QString& argument : arguments) {
        ++number;
        if (argument != standardInput && !argument.startsWith(u'@')) {
            takeText({u"argument"_s, number}, argument, complaints, take);
            continue;
        }
        if (argument == u"@") {
            complaints->report({argument}, {u"expected the name of a file behind '@'"_s, 1});
            continue;
        }
        const QString file = argument == standardInput ? argument : argument.sliced(1);
        withLines(file, complaints, [&](const QString& source, LineReader* lines) {
            while (lines->next()) {
                const Place place{source, lines->number()};
                if (lines->isTooLong())
                    complaints->report(place,
                                       {u"expected a shorter line"_s, LineReader::mostBytes});
                else
                    takeText(place, QString::fromUtf8(lines->line()), complaints, take);
            }
        });
    }
}

std::optional<std::pair<Place, QString>> onlyText(const QString& argument, Complaints* complaints)
{
    std::vector<std::pair<Place, QString>> texts;
    const bool hadComplaints = complaints->areThere();
    forEachText({argument}, complaints, [&](const Place& place, const QString& text) {
        if (texts.size() < 2)
            texts.emplace_back(place, text);
    });
    if (texts.size() == 1)
        return texts.front();
    if (texts.size() > 1)
        complaints->report(texts.back().first, {u"expected one text only"_s, 0});
    else if (complaints->areThere() == hadComplaints)
        complaints->report({argument}, {u"expected a text"_s, 0});
    return std::nullopt;
}

} // namespace tool
