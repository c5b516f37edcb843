#include "search/Rule.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace tool {

using ions::Error;
using ions::Parsed;
using ions::Peptidoform;

namespace {

constexpr std::array<std::pair<QStringView, RulePosition>, 4> positions = {
    {{u"N-term", RulePosition::NTerm},
     {u"C-term", RulePosition::CTerm},
     {u"Protein N-term", RulePosition::ProteinNTerm},
     {u"Protein C-term", RulePosition::ProteinCTerm}}};

std::optional<RulePosition> positionNamed(QStringView name)
{
    for (const auto& [text, position] : positions) {
        if (name.compare(text, Qt::CaseInsensitive) == 0)
            return position;
    }
    return std::nullopt;
}

bool areSites(QStringView text)
{
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), [](QChar letter) {
        return letter >= u'A' && letter <= u'Z';
    });
}

/// The bracket that a name is read in.
constexpr QStringView bracket = u"A[";

/// Tells whether the bracket held one tag that modifies: a remark does not.
bool isOneTag(const Peptidoform& peptidoform)
{
    if (peptidoform.ions.size() != 1 || peptidoform.ions[0].chains.size() != 1)
        return false;
    const ions::PeptidoformChain& chain = peptidoform.ions[0].chains[0];
    if (chain.modifications.size() != 1 || chain.residues != u"A")
        return false;
    const ions::Modification& modification = chain.modifications[0].modification;
    return modification.tags.size() == 1 && modification.tags[0].kind != ions::TagKind::Info &&
           modification.label.kind == ions::ModificationLabel::None;
}

Error inRule(Error error)
{
    error.position = std::max(error.position - bracket.size(), qsizetype(0));
    return error;
}

/// Reads what a rule modifies by, and weighs it.
std::optional<Error> readModification(const QString& name, const Chemistry& chemistry, Rule* rule)
{
    const auto read = Peptidoform::read(QString(bracket + name + u']'));
    if (!read)
        return inRule(read.error());
    if (!isOneTag(*read))
        return Error{u"expected one name, accession, formula or mass"_s, 0};
    const auto weight = read->weigh(0, chemistry.residues, chemistry.modifications);
    if (!weight)
        return inRule(weight.error());
    if (weight->charge != 0)
        return Error{u"expected a modification without a charge"_s, 0};
    rule->modification = read->ions[0].chains[0].modifications[0].modification;
    rule->mass = weight->masses.monoisotopic - chemistry.residues.peptide(u"A")->monoisotopic;
    return {};
}

/// Reads letters, a position, or letters at a position.
bool readPlaces(QStringView text, Rule* rule)
{
    const qsizetype caret = text.indexOf(u'^');
    const QStringView sites = caret < 0 ? text : text.first(caret);
    const auto position = positionNamed(caret < 0 ? text : text.sliced(caret + 1));
    if (position)
        rule->position = *position;
    if (caret < 0 && position)
        return true;
    rule->sites = sites.toString();
    return areSites(sites) && (caret < 0 || position);
}

} // namespace

Parsed<Rule> Rule::read(const QString& text, const Chemistry& chemistry)
{
    const qsizetype at = text.lastIndexOf(u'@');
    if (at < 0)
        return Error{u"expected NAME@SITES, NAME@SITES^POSITION or NAME@POSITION"_s, text.size()};
    Rule rule;
    if (!readPlaces(QStringView(text).sliced(at + 1), &rule)) {
        return Error{
            u"expected letters of residues, N-term, C-term, Protein N-term, Protein C-term, "
            u"or letters at one of these as in Q^N-term"_s,
            at + 1};
    }
    if (const auto error = readModification(text.first(at), chemistry, &rule))
        return *error;
    return rule;
}

} // namespace tool
