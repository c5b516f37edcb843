#include "FaultFields.h"

using namespace Qt::StringLiterals;

namespace fields {

namespace {

/// The keys of all dictionaries, also of those that no reader reads.
void addDictionaries(Fields* fields, const std::string& path, const chem::ChemicalFactory& factory)
{
    struct Open : public chem::ChemicalFactory
    {
        using ChemicalFactory::buildingBlocks;
    };
    const auto dictionaries = factory.*(&Open::buildingBlocks);
    for (auto dictionary = dictionaries.cbegin(); dictionary != dictionaries.cend(); ++dictionary)
        addField(fields, path + std::to_string(dictionary.key()), dictionary->keys());
}

/// The masses of formulas, among them unknown elements and losses.
void addMasses(Fields* fields, const std::string& path, const chem::ChemicalFactory& factory)
{
    for (const QString& formula : {u"C6H12O6"_s, u"H-2O-1S2"_s, u"ENaXx2"_s})
        addField(fields, path + formula.toStdString(), factory.constructMolecule(formula));
}

void addPeptides(Fields* fields, const std::string& path, const chem::ChemicalFactory& factory)
{
    QList<QSharedPointer<const chem::AminoAcid>> residues;
    chem::NamedMolecule left;
    chem::NamedMolecule right;
    factory.parseAminoAcidSequence(u"ACHJ"_s, &residues, &left, &right);
    addField(fields, path,
             std::tuple(residues, left, right, factory.constructLinearPeptideComplex(u"ACJ"_s)));
}

void addOligos(Fields* fields, const std::string& path, const chem::ChemicalFactory& factory)
{
    for (const QString& oligo :
         {u"{rA*C}"_s, u"rZ*A"_s, u"A!C"_s, u"bA"_s, u"dT-3.5"_s, u"A[x]"_s}) {
        QList<QSharedPointer<const chem::Nucleotide>> nucleotides;
        chem::NamedMolecule left;
        chem::NamedMolecule right;
        const bool isRead = factory.parseNucleotideSequence(oligo, &nucleotides, &left, &right);
        addField(fields, path + oligo.toStdString(),
                 std::tuple(factory.isValidOligoSequence(oligo), isRead, nucleotides, left, right,
                            factory.constructLinearOligoComplex(oligo)));
    }
    addField(fields, path + "expression", factory.generateFullOligoRegex());
}

void addGlycans(Fields* fields, const std::string& path, const chem::ChemicalFactory& factory)
{
    addField(fields, path,
             std::tuple(factory.isValidGlycanComposition(u"Hex(2)Na(1)"_s),
                        factory.constructGlycanModification(u"Hex(2)HexNAc(1)"_s)));
}

} // namespace

void addField(Fields* fields, const std::string& path, const QPointF& point)
{
    addField(fields, inside(path, "x"), point.x());
    addField(fields, inside(path, "y"), point.y());
}

void addField(Fields* fields, const std::string& path, const QRegularExpression& expression)
{
    addField(fields, inside(path, "pattern"), expression.pattern());
    addField(fields, inside(path, "isValid"), expression.isValid());
}

void addField(Fields* fields, const std::string& path, const chem::MoleculeComplex& complex)
{
    addField(fields, path, static_cast<const chem::NamedMolecule&>(complex));
    addField(fields, inside(path, "residues"), complex.residues);
    addField(fields, inside(path, "sites"), complex.sites);
}

void addField(Fields* fields, const std::string& path, const chem::Fragment& fragment)
{
    addField(fields, path, static_cast<const chem::Molecule&>(fragment));
    addField(fields, inside(path, "typeLabel"), fragment.typeLabel);
    addField(fields, inside(path, "residues"), static_cast<int>(fragment.residues.size()));
    addField(fields, inside(path, "sites"), static_cast<int>(fragment.sites.size()));
}

void addField(Fields* fields, const std::string& path, const chem::SimpleFragment& fragment)
{
    addField(fields, inside(path, "averageMass"), fragment.averageMass);
    addField(fields, inside(path, "monoMass"), fragment.monoMass);
    addField(fields, inside(path, "sequence"), fragment.sequence);
    addField(fields, inside(path, "type"), static_cast<int>(fragment.type));
    addField(fields, inside(path, "position"), fragment.position);
}

void addField(Fields* fields, const std::string& path, const chem::ObservedMassEntity& mass)
{
    addField(fields, inside(path, "mass"), mass.mass());
    addField(fields, inside(path, "monoMass"), mass.monoMass());
}

void addField(Fields* fields, const std::string& path, const chem::Match& match)
{
    addField(fields, inside(path, "entity"), match.entity);
    addField(fields, inside(path, "observedMass"), match.observedMass);
}

void addField(Fields* fields, const std::string& path,
              const chem::ClipOptions::ResidueBeforeAfter& rule)
{
    addField(fields, inside(path, "before"), rule.before);
    addField(fields, inside(path, "after"), rule.after);
}

void addField(Fields* fields, const std::string& path, const chem::ClipOptions& options)
{
    addField(fields, inside(path, "clipType"), static_cast<int>(options.clipType()));
    addField(fields, inside(path, "rules"), options.residueBeforeAfterVector());
}

void addField(Fields* fields, const std::string& path, const chem::ChemicalFactory& factory)
{
    addDictionaries(fields, inside(path, "dictionary "), factory);
    addMasses(fields, inside(path, "molecule "), factory);
    addPeptides(fields, inside(path, "peptide "), factory);
    addOligos(fields, inside(path, "oligonucleotide "), factory);
    addGlycans(fields, inside(path, "glycan "), factory);
}

} // namespace fields
