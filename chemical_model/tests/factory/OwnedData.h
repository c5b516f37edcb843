#pragma once

#include "SharedObjects.h"

#include <QSharedPointer>
#include <QStringList>
#include <QWeakPointer>

#include <any>
#include <cstddef>
#include <map>
#include <vector>

/// \file
/// What objects own, down to the last text: where it lies and what its bytes are.

/// The bytes of each text, list, map and number that an object owns, by the path to it. For texts,
/// lists and maps these hold the address of their data. So data that detaches shows, also if it
/// is equal.
///
/// The record holds a copy of all that it has seen. So everything is shared while the record lives,
/// and any access that may write has to part: that makes hidden writes visible.
class OwnedData
{
public:
    /// Records what `object` owns, under paths that start with `name`.
    template <typename T>
    OwnedData(const QString& name, const T& object)
    {
        walk(name, object);
    }

    /// The paths at which the two differ.
    QStringList differences(const OwnedData& other) const
    {
        QStringList paths;
        for (const auto& [path, entry] : m_entries) {
            const auto found = other.m_entries.find(path);
            if (found == other.m_entries.end() || found->second.bytes != entry.bytes)
                paths.append(path);
        }
        for (const auto& [path, entry] : other.m_entries) {
            if (!m_entries.contains(path))
                paths.append(path);
        }
        return paths;
    }

    /// How many pieces are recorded.
    std::size_t size() const { return m_entries.size(); }

private:
    struct Entry
    {
        std::vector<std::byte> bytes;
        std::any copy; ///< Keeps the data shared, and its address from being used again.
    };

    template <typename T>
    void note(const QString& path, const T& object)
    {
        const auto* bytes = reinterpret_cast<const std::byte*>(&object);
        m_entries.insert_or_assign(path, Entry{{bytes, bytes + sizeof(T)}, object});
    }

    template <typename T>
    requires std::is_arithmetic_v<T> || std::is_enum_v<T>
    void walk(const QString& path, T value) { note(path, value); }

    void walk(const QString& path, const QString& text) { note(path, text); }

    template <typename First, typename Second>
    void walk(const QString& path, const std::pair<First, Second>& pair)
    {
        walk(path + u".first", pair.first);
        walk(path + u".second", pair.second);
    }

    template <typename T>
    void walk(const QString& path, const QList<T>& list)
    {
        note(path, list);
        for (qsizetype i = 0; i < list.size(); ++i)
            walk(path + u'[' + QString::number(i) + u']', list[i]);
    }

    template <typename Key, typename Value>
    void walk(const QString& path, const QMap<Key, Value>& map)
    {
        note(path, map);
        int number = 0;
        for (auto entry = map.constBegin(); entry != map.constEnd(); ++entry) {
            const QString place = path + u'[' + QString::number(number++) + u']';
            walk(place + u".key", entry.key());
            walk(place + u".value", entry.value());
        }
    }

    template <typename T>
    void walk(const QString& path, const QSharedPointer<T>& pointer)
    {
        note(path, pointer);
        if constexpr (requires { sizeof(T); }) {
            if (pointer)
                walk(path, *pointer);
        }
    }

    template <typename T>
    void walk(const QString& path, const QWeakPointer<T>& pointer)
    {
        note(path, pointer);
    }

    void walk(const QString& path, const chem::ChemicalFormula& formula)
    {
        walk(path, formula.elementCountMap());
    }

    void walk(const QString& path, const chem::Molecule& molecule)
    {
        walk(path + u".formula", molecule.formula());
        walk(path + u".averageMass", molecule.averageMass());
        walk(path + u".monoMass", molecule.monoMass());
    }

    void walk(const QString& path, const chem::NamedMolecule& molecule)
    {
        walk(path, static_cast<const chem::Molecule&>(molecule));
        walk(path + u".code", molecule.code);
        walk(path + u".name", molecule.name);
    }

    void walk(const QString& path, const chem::Nucleotide& nucleotide)
    {
        walk(path, static_cast<const chem::NamedMolecule&>(nucleotide));
        walk(path + u".nucleobase", nucleotide.nucleobase);
        walk(path + u".ribose", nucleotide.ribose);
        walk(path + u".phosphate", nucleotide.phosphate);
    }

    void walk(const QString& path, const chem::ComplexResidue& residue)
    {
        walk(path, static_cast<const chem::NamedMolecule&>(residue));
        walk(path + u".position", residue.position);
    }

    void walk(const QString& path, const chem::FragmentationSite& site)
    {
        walk(path + u".delta", site.delta);
        walk(path + u".type", site.type);
        walk(path + u".lost", site.lost);
    }

    void walk(const QString& path, const chem::MoleculeComplex& complex)
    {
        walk(path, static_cast<const chem::NamedMolecule&>(complex));
        walk(path + u".residues", complex.residues);
        walk(path + u".sites", complex.sites);
    }

    void walk(const QString& path, const chem::Fragment& fragment)
    {
        walk(path, static_cast<const chem::Molecule&>(fragment));
        walk(path + u".typeLabel", fragment.typeLabel);
        walk(path + u".residues", fragment.residues);
        walk(path + u".sites", fragment.sites);
        note(path + u".parentComplex", fragment.parentComplex);
    }

    void walk(const QString& path, const chem::SimpleFragment& fragment)
    {
        walk(path + u".sequence", fragment.sequence);
        walk(path + u".averageMass", fragment.averageMass);
        walk(path + u".monoMass", fragment.monoMass);
        walk(path + u".type", fragment.type);
        walk(path + u".position", fragment.position);
    }

    /// What the entity holds, as it hands it out: a copy shares the data.
    void walk(const QString& path, const chem::MoleculeEntity& entity)
    {
        note(path, entity);
        walkParts(path, chem::StructuredMolecule{
                            storedFormula(entity), entity.type(), 0.0, 0.0, entity.chains(),
                            entity.links(), entity.modifications(), entity.name(), entity.code(),
                            entity.description(), entity.transformations()});
    }

    /// A peptide or strand may lay its formula out anew at each call: then nobody owns it.
    static chem::ChemicalFormula storedFormula(const chem::MoleculeEntity& entity)
    {
        const bool mayLayOut = entity.type() == chem::MoleculeType::Peptide ||
                               entity.type() == chem::MoleculeType::OligoNucleotide;
        return mayLayOut ? chem::ChemicalFormula() : entity.formula();
    }

    void walk(const QString& path, const chem::StructuredMolecule& molecule)
    {
        walkParts(path, molecule);
        walk(path + u".averageMass", molecule.averageMass);
        walk(path + u".monoMass", molecule.monoMass);
    }

    void walkParts(const QString& path, const chem::StructuredMolecule& molecule)
    {
        walk(path + u".formula", molecule.formula);
        walk(path + u".type", molecule.type);
        walk(path + u".chains", molecule.chains);
        walk(path + u".links", molecule.links);
        walk(path + u".modifications", molecule.modifications);
        walk(path + u".name", molecule.name);
        walk(path + u".code", molecule.code);
        walk(path + u".description", molecule.description);
        walk(path + u".transformations", molecule.transformations);
    }

    void walk(const QString& path, const chem::ParentChainLocus& locus)
    {
        walk(path + u".label", locus.label);
        walk(path + u".chain", locus.chain);
        walk(path + u".start", locus.start);
        walk(path + u".end", locus.end);
    }

    void walk(const QString& path, const chem::Chain& chain)
    {
        walk(path + u".residues", chain.residues());
        walk(path + u".name", chain.name());
        walk(path + u".code", chain.code());
        walk(path + u".type", chain.type());
        walk(path + u".parentLocus", chain.parentLocus());
    }

    void walk(const QString& path, const chem::Link& link)
    {
        walk(path + u".entity", link.entity());
        walk(path + u".connection", link.connection());
    }

    void walk(const QString& path, const chem::Modification& modification)
    {
        walk(path + u".entity", modification.entity());
        walk(path + u".possibleChainLocations", modification.possibleChainLocations());
    }

    void walk(const QString& path, const chem::TransformationEntity& entry)
    {
        note(path, entry);
        chem::TransformationEntity copy = entry;
        walk(path + u".original", copy.original());
    }

    /// Steps show nothing of their arguments, but their bytes hold the addresses of these.
    void walk(const QString& path, const chem::Modify& step) { note(path, step); }
    void walk(const QString& path, const chem::Unmodify& step) { note(path, step); }
    void walk(const QString& path, const chem::EstablishLink& step) { note(path, step); }
    void walk(const QString& path, const chem::ChainFragmenter& step) { note(path, step); }

    void walk(const QString& path, const chem::ChainFragmentDef& definition)
    {
        walk(path + u".startTerminal", definition.startTerminal);
        walk(path + u".locus", definition.locus);
        walk(path + u".endTerminal", definition.endTerminal);
    }

    void walk(const QString& path, const chem::ClipOptions& options)
    {
        note(path, options);
        walk(path + u".residueBeforeAfter", options.residueBeforeAfterVector());
    }

    void walk(const QString& path, const chem::ClipOptions::ResidueBeforeAfter& rule)
    {
        walk(path + u".before", rule.before);
        walk(path + u".after", rule.after);
    }

    void walk(const QString& path, const chem::ObservedMassEntity& mass) { note(path, mass); }
    void walk(const QString& path, const chem::MatchingParameters& parameters)
    {
        note(path, parameters);
    }

    void walk(const QString& path, const OpenFactory::IsotopeRecord& isotope)
    {
        walk(path + u".atomicNumber", isotope.atomicNumber);
        walk(path + u".extraNeutrons", isotope.extraNeutrons);
        walk(path + u".name", isotope.name);
        walk(path + u".symbol", isotope.symbol);
        walk(path + u".mass", isotope.mass);
        walk(path + u".abundance", isotope.abundance);
    }

    void walk(const QString& path, const OpenFactory& factory)
    {
        note(path, factory); // what is private as well
        walk(path + u".isotopesBySymbol", factory.isotopesBySymbol);
        walk(path + u".isotopesByAtomicNumber", factory.isotopesByAtomicNumber);
        walk(path + u".isotopesByName", factory.isotopesByName);
        walk(path + u".isotopes", factory.isotopes);
        walk(path + u".buildingBlocks", factory.buildingBlocks);
        walk(path + u".defaultRibose", factory.defaultRibose);
        walk(path + u".defaultPhosphate", factory.defaultPhosphate);
        walkConstants(path, factory);
        walk(path + u".sharedExtension", factory.sharedExtension);
    }

    void walkConstants(const QString& path, const OpenFactory& factory)
    {
        walk(path + u".water", factory.water);
        walk(path + u".waterPair", factory.waterPair);
        walk(path + u".hydroxyl", factory.hydroxyl);
        walk(path + u".hydrogen", factory.hydrogen);
        walk(path + u".oxygen", factory.oxygen);
        walk(path + u".amine", factory.amine);
        walk(path + u".hydrogenPair", factory.hydrogenPair);
        walk(path + u".ammonia", factory.ammonia);
        walk(path + u".formyl", factory.formyl);
        walk(path + u".electron", factory.electron);
        walk(path + u".proton", factory.proton);
    }

    void walk(const QString& path, const SharedObjects& shared)
    {
        walk(path + u".factory", shared.factory);
        walk(path + u".formulaText", shared.formulaText);
        walk(path + u".lossText", shared.lossText);
        walk(path + u".peptideText", shared.peptideText);
        walk(path + u".strandText", shared.strandText);
        walk(path + u".glycanText", shared.glycanText);
        walk(path + u".isotopeText", shared.isotopeText);
        walk(path + u".blockLabel", shared.blockLabel);
        walk(path + u".name", shared.name);
        walk(path + u".code", shared.code);
        walk(path + u".elements", shared.elements);
        walk(path + u".counts", shared.counts);
        walk(path + u".formula", shared.formula);
        walk(path + u".loss", shared.loss);
        walk(path + u".molecule", shared.molecule);
        walk(path + u".namedMolecule", shared.namedMolecule);
        walk(path + u".aminoAcid", shared.aminoAcid);
        walk(path + u".nucleotide", shared.nucleotide);
        walk(path + u".peptide", shared.peptide);
        walk(path + u".strand", shared.strand);
        walk(path + u".nucleotides", shared.nucleotides);
        walk(path + u".fivePrime", shared.fivePrime);
        walk(path + u".threePrime", shared.threePrime);
        walk(path + u".richFragments", shared.richFragments);
        walk(path + u".flatFragments", shared.flatFragments);
        walk(path + u".chains", shared.chains);
        walk(path + u".links", shared.links);
        walk(path + u".modifications", shared.modifications);
        walk(path + u".locus", shared.locus);
        walk(path + u".structured", shared.structured);
        walk(path + u".entities", shared.entities);
        walk(path + u".protein", shared.protein);
        walk(path + u".modify", shared.modify);
        walk(path + u".unmodify", shared.unmodify);
        walk(path + u".establishLink", shared.establishLink);
        walk(path + u".pieces", shared.pieces);
        walk(path + u".chainFragmenter", shared.chainFragmenter);
        walk(path + u".history", shared.history);
        walk(path + u".clipOptions", shared.clipOptions);
        walk(path + u".before", shared.before);
        walk(path + u".after", shared.after);
        walk(path + u".observedMasses", shared.observedMasses);
        walk(path + u".matchingParameters", shared.matchingParameters);
    }

    std::map<QString, Entry> m_entries;
};
