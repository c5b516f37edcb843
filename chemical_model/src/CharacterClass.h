#pragma once

#include <QRegularExpression>
#include <QString>

#include <array>
#include <vector>

namespace chem {

/// The inside of a character class of a regular expression, such as `+defmr` or `a-z`, and the
/// characters in it.
class CharacterClass
{
public:
    /// What it takes to tell the characters.
    enum class Form {
        Plain,  ///< Each character stands for itself; `\[` and `\]` stand for brackets.
        Special ///< Ranges, a negation, escapes, odd texts: the expression engine tells.
    };

    /// Whether the class ends at the closing bracket that an expression puts behind `text`: every
    /// bracket in it is escaped, and no escape takes the closing one along. An empty text and a
    /// lone `^` do not, since the bracket behind them counts as a character of the class.
    static bool isSelfContained(QStringView text);

    /// Takes a text that is self-contained.
    explicit CharacterClass(const QString& text);

    Form form() const { return m_form; }

    /// The characters of a plain class, in the order of the text.
    const std::vector<char32_t>& characters() const { return m_characters; }

    /// Whether a special class holds `character`. May be called from any number of threads.
    bool holds(char32_t character) const;

private:
    Form m_form = Form::Plain;
    std::vector<char32_t> m_characters; ///< Of a plain class.
    QRegularExpression m_expression;    ///< Of a special class.
};

} // namespace chem
