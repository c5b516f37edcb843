#include "support/ShellText.h"

#include <utility>

namespace tool {

namespace {

constexpr char mark = '\x1f';

} // namespace

std::vector<std::string> forParser(int count, char** arguments)
{
    std::vector<std::string> marked;
    for (int i = count - 1; i > 0; --i) { // it reads them from the back
        std::string text = arguments[i];
        if (text.starts_with('[') && text.ends_with(']'))
            text.insert(text.begin(), mark);
        marked.push_back(std::move(text));
    }
    return marked;
}

QString fromShell(const std::string& text)
{
    return QString::fromStdString(text.starts_with(mark) ? text.substr(1) : text);
}

QStringList fromShell(const std::vector<std::string>& texts)
{
    QStringList result;
    for (const std::string& text : texts)
        result += fromShell(text);
    return result;
}

} // namespace tool
