#include "program/OptionChecks.h"

#include "support/Complaints.h"
#include "support/Number.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace tool {

namespace {

std::string notWhatWasSaid(const std::string& expected, const std::string& text)
{
    return "expected " + expected + ", not '" + text + "'";
}

std::string joined(const std::vector<std::string>& words, const std::string& between)
{
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : between) + word;
    return text;
}

} // namespace

CLI::Validator wholeNumber(int least, int most)
{
    const auto check = [least, most](std::string& text) {
        const auto number = readWhole(text);
        if (number && *number >= least && *number <= most)
            return std::string();
        return notWhatWasSaid(
            "a whole number from " + std::to_string(least) + " to " + std::to_string(most), text);
    };
    return CLI::Validator(check, "");
}

void checkLengths(int min, int max)
{
    if (min > max) {
        throw UsageError{
            u"--min: expected at most %1, the length of --max, not %2"_s.arg(max).arg(min)};
    }
}

CLI::Validator oneOf(const std::vector<std::string>& words)
{
    const auto check = [words](std::string& text) {
        if (std::find(words.begin(), words.end(), text) != words.end())
            return std::string();
        return notWhatWasSaid("one of " + joined(words, ", "), text);
    };
    return CLI::Validator(check, '{' + joined(words, ",") + '}');
}

std::vector<std::string> wordsTaken(const CLI::Option& option)
{
    const std::string type = option.get_type_name();
    const auto open = type.find('{');
    const auto close = type.find('}', open);
    if (open == std::string::npos || close == std::string::npos)
        return {};
    return CLI::detail::split(type.substr(open + 1, close - open - 1), ',');
}

} // namespace tool
