#pragma once

#include "FragmentIons.h"
#include "StandardResidues.h"
#include <zel_chemical_model/ChemicalFactory.h>
#include <zel_chemical_model/LinearComplex.h>

#include <QList>
#include <QString>

#include <gtest/gtest.h>

#include <map>
#include <utility>
#include <vector>

/// \file
/// Lists of ions, and the fragments that the first library makes instead.

namespace ions {

/// All series of the ends.
inline const std::vector<Series> peptideSeries = {
    Series::A, Series::ADot, Series::B, Series::C, Series::CDot,
    Series::X, Series::XDot, Series::Y, Series::Z, Series::ZDot};
inline const std::vector<Series> oligoSeries = {Series::A, Series::B,       Series::C,
                                                Series::D, Series::AMinusB, Series::W,
                                                Series::X, Series::Y,       Series::Z};

inline IonOptions series(std::vector<Series> wanted)
{
    IonOptions options;
    options.series = std::move(wanted);
    return options;
}

inline IonOptions allSeries()
{
    IonOptions options = series({});
    for (int i = 0; i <= int(Series::Reporter); ++i)
        options.series.push_back(Series(i));
    return options;
}

inline FragmentIons ionsOf(const Backbone& backbone, const IonOptions& options)
{
    FragmentIons ions;
    const auto refusal = ions.assign(backbone, options);
    EXPECT_FALSE(refusal.has_value()) << (refusal ? refusal->message.toStdString() : "");
    return ions;
}

/// The m/z of each label.
inline std::map<QString, std::vector<double>> byLabel(const FragmentIons& ions,
                                                      const Backbone& backbone)
{
    std::map<QString, std::vector<double>> labelled;
    for (qsizetype i = 0; i < std::ssize(ions.mz()); ++i)
        labelled[ions.label(backbone, i)].push_back(ions.mz()[std::size_t(i)]);
    return labelled;
}

/// Fragments as the first library makes them, by complexes of residues and sites from both ends: by
/// their label and the number of their residues.
inline std::map<std::pair<QString, qsizetype>, chem::Molecule>
fragmentsOf(const chem::MoleculeComplex& complex)
{
    QList<QSharedPointer<chem::Fragment>> fragments;
    chem::defaultChemicalFactory()->generateLinearFragments(complex, &fragments);
    std::map<std::pair<QString, qsizetype>, chem::Molecule> molecules;
    for (const auto& fragment : fragments)
        molecules[{fragment->typeLabel, fragment->residues.size() - 1}] = *fragment;
    return molecules;
}

/// The same by the index of the ion in a list of one chain. All have one but a1-B, which the first
/// library has from the second nucleotide on.
inline std::map<qsizetype, chem::Molecule> fragmentsOf(const chem::MoleculeComplex& complex,
                                                       const FragmentIons& ions)
{
    const auto fragments = fragmentsOf(complex);
    std::map<qsizetype, chem::Molecule> molecules;
    for (qsizetype i = 0; i < std::ssize(ions.mz()); ++i) {
        const auto [run, offset] = ions.runOf(i);
        const Series of = ions.runs()[std::size_t(run)].series;
        const QString label = of == Series::AMinusB ? QStringLiteral("aB") : seriesName(of);
        const auto fragment = fragments.find({label, offset + 1});
        if (fragment != fragments.end())
            molecules[i] = fragment->second;
        else
            EXPECT_TRUE(of == Series::AMinusB && offset == 0) << label.toStdString();
    }
    return molecules;
}

} // namespace ions
