// The rules themselves stand in data/proteases.tsv and data/ribonucleases.tsv.

#include "Digest.h"
#include "digests/LetterRule.h"
#include "support/NearestNames.h"
#include "tables/DataFile.h"

#include <QRegularExpression>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ions {

struct CleavageAgent::Content
{
    enum Kind { Rule, Nowhere, Anywhere };

    QString name;
    QString accession;
    QString expression;
    Kind kind = Rule;
    std::optional<LetterRule> letters;
    QRegularExpression engine; ///< Only where there are no letter classes.

    static Parsed<std::shared_ptr<const Content>>
    ofRule(const QString& expression, const QString& name, const QString& accession = {})
    {
        auto content = std::make_shared<Content>();
        content->name = name;
        content->accession = accession;
        content->expression = expression;
        content->letters = LetterRule::compile(expression);
        if (!content->letters) {
            content->engine = QRegularExpression(expression);
            if (!content->engine.isValid())
                return Error{u"expected a regular expression: "_s + content->engine.errorString(),
                             content->engine.patternErrorOffset()};
            content->engine.optimize();
        }
        return std::shared_ptr<const Content>(std::move(content));
    }

    static std::shared_ptr<const Content> ofKind(Kind kind, const QString& name,
                                                 const QString& accession)
    {
        auto content = std::make_shared<Content>();
        content->name = name;
        content->accession = accession;
        content->kind = kind;
        return content;
    }

    /// An agent of the table: accession, name, expression. The two without an expression tell by
    /// their names what they do.
    static std::shared_ptr<const Content> ofRow(const QList<QString>& row)
    {
        if (!row.at(2).isEmpty())
            return ofRule(row.at(2), row.at(1), row.at(0)).value();
        return ofKind(row.at(1) == u"no cleavage" ? Nowhere : Anywhere, row.at(1), row.at(0));
    }
};

namespace {

QList<QList<QString>> proteaseRows()
{
    return DataFile(u"proteases.tsv"_s).rows();
}

QList<QList<QString>> ribonucleaseRows()
{
    return DataFile(u"ribonucleases.tsv"_s).rows();
}

QStringList column(const QList<QList<QString>>& rows, qsizetype index)
{
    QStringList texts;
    for (const QList<QString>& row : rows)
        texts.append(row.at(index));
    return texts;
}

QStringView withoutKind(QStringView name)
{
    constexpr QStringView kind = u"RNase ";
    return name.startsWith(kind, Qt::CaseInsensitive) ? name.sliced(kind.size()) : name;
}

bool isSame(QStringView left, QStringView right)
{
    return left.compare(right, Qt::CaseInsensitive) == 0;
}

Error unknownName(QStringView text, const QString& what, const QStringList& names)
{
    const QStringList nearest = nearestNames(text, names);
    const QString& examples = (nearest.isEmpty() ? names : nearest).join(u", "_s);
    return {u"expected the name of "_s + what + u", such as "_s + examples, 0};
}

/// Surrogates alone are no text to the expression engine, and pairs are one character to it; here
/// each is a letter that no expression names.
QString withoutSurrogates(QStringView text)
{
    QString plain = text.toString();
    if (std::any_of(text.begin(), text.end(), [](QChar c) { return c.isSurrogate(); })) {
        for (QChar& c : plain)
            c = c.isSurrogate() ? QChar(QChar::ReplacementCharacter) : c;
    }
    return plain;
}

/// The ends of all matches inside the text, in their order. The search goes on where a match ends,
/// and a letter further on if it is empty. Gives false if the engine gives up.
bool appendMatchEnds(const QRegularExpression& engine, const QString& text,
                     std::vector<qsizetype>& ends)
{
    qsizetype from = 0;
    while (from < text.size()) {
        // The text is known to be valid; checking it at each match would be quadratic.
        const QRegularExpressionMatch match =
            engine.match(text, from, QRegularExpression::NormalMatch,
                         QRegularExpression::DontCheckSubjectStringMatchOption);
        if (!match.hasMatch())
            return match.isValid();
        const qsizetype end = match.capturedEnd();
        if (end > 0 && end < text.size() && (ends.empty() || ends.back() < end))
            ends.push_back(end);
        from = end + (match.capturedLength() == 0 ? 1 : 0);
    }
    return true;
}

} // namespace

CleavageAgent::CleavageAgent(std::shared_ptr<const Content> content)
    : m_content(std::move(content))
{
}

const QString& CleavageAgent::name() const
{
    return m_content->name;
}

const QString& CleavageAgent::accession() const
{
    return m_content->accession;
}

const QString& CleavageAgent::expression() const
{
    return m_content->expression;
}

bool CleavageAgent::isUnspecific() const
{
    return m_content->kind == Content::Anywhere;
}

bool CleavageAgent::isCompiled() const
{
    return m_content->kind != Content::Rule || m_content->letters.has_value();
}

bool CleavageAgent::findCuts(QStringView text, std::vector<qsizetype>* cuts) const
{
    cuts->clear();
    if (m_content->letters)
        m_content->letters->appendCuts(text, *cuts);
    if (isCompiled() || appendMatchEnds(m_content->engine, withoutSurrogates(text), *cuts))
        return true;
    cuts->clear();
    return false;
}

Parsed<Protease> Protease::named(QStringView text)
{
    const QList<QList<QString>> rows = proteaseRows();
    for (const QList<QString>& row : rows) {
        if (isSame(row.at(0), text) || isSame(row.at(1), text))
            return Protease(Content::ofRow(row));
    }
    return unknownName(text, u"a protease"_s, column(rows, 1));
}

Parsed<Protease> Protease::fromExpression(const QString& expression, const QString& name)
{
    Parsed<std::shared_ptr<const Content>> content = Content::ofRule(expression, name);
    if (!content)
        return content.error();
    return Protease(std::move(content).value());
}

QStringList Protease::names()
{
    return column(proteaseRows(), 1);
}

Parsed<Ribonuclease> Ribonuclease::named(QStringView text)
{
    const QList<QList<QString>> rows = ribonucleaseRows();
    for (const QList<QString>& row : rows) {
        if (isSame(withoutKind(row.at(0)), withoutKind(text)))
            return Ribonuclease(Content::ofRule(row.at(1), row.at(0)).value());
    }
    return unknownName(text, u"a ribonuclease"_s, column(rows, 0));
}

Parsed<Ribonuclease> Ribonuclease::fromExpression(const QString& expression, const QString& name)
{
    Parsed<std::shared_ptr<const Content>> content = Content::ofRule(expression, name);
    if (!content)
        return content.error();
    return Ribonuclease(std::move(content).value());
}

QStringList Ribonuclease::names()
{
    return column(ribonucleaseRows(), 0);
}

} // namespace ions
