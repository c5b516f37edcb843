#pragma once

#include "Digest.h"

#include <algorithm>
#include <vector>

/// \file
/// Digests by asking every range of a text whether it is a product.

namespace ions {

/// One product of a digest.
struct Product
{
    qsizetype start = 0;
    qsizetype end = 0;
    int missed = 0;
    double monoisotopic = 0.0;
    double average = 0.0;
};

/// What products weigh: letters, and what comes to them where they end in a cut and in the text's
/// end.
struct ProductMasses
{
    std::span<const Masses, 128> letters;
    Masses atCut;
    Masses atEnd;
};

inline ProductMasses peptideMasses(const ResidueTable& residues)
{
    return {residues.letterMasses(), residues.water(), residues.water()};
}

/// Both masses of a product, added up in a wider type; NaN with an unknown letter.
inline Product weighedProduct(const QString& text, qsizetype start, qsizetype end,
                              const ProductMasses& masses)
{
    const Masses& ends = end == text.size() ? masses.atEnd : masses.atCut;
    long double monoisotopic = ends.monoisotopic;
    long double average = ends.average;
    for (qsizetype i = start; i < end; ++i) {
        const char16_t letter = text[i].unicode();
        const Masses& residue = masses.letters[letter < 128 ? letter : 0];
        monoisotopic += residue.monoisotopic;
        average += residue.average;
    }
    return {start, end, 0, double(monoisotopic), double(average)};
}

/// The products by these cuts, in the order of a digest.
inline std::vector<Product> productsBySearch(const QString& text, const CleavageAgent& agent,
                                             const std::vector<qsizetype>& cuts,
                                             const ProductMasses& masses,
                                             const DigestOptions& options)
{
    const auto isCut = [&](qsizetype place) {
        return place == 0 || place == text.size() || agent.isUnspecific() ||
               std::find(cuts.begin(), cuts.end(), place) != cuts.end();
    };
    std::vector<Product> products;
    for (qsizetype start = 0; start < text.size(); ++start) {
        for (qsizetype end = start + 1; end <= text.size(); ++end) {
            const auto missed = std::count_if(
                cuts.begin(), cuts.end(), [&](qsizetype cut) { return start < cut && cut < end; });
            const int cutEnds = int(isCut(start)) + int(isCut(end));
            const qsizetype length = end - start;
            Product product = weighedProduct(text, start, end, masses);
            product.missed = int(missed);
            if (cutEnds >= (options.isSemiSpecific ? 1 : 2) &&
                missed <= std::max(options.missedCleavages, 0) && length >= options.minLength &&
                length <= options.maxLength && !(product.monoisotopic < options.minMass) &&
                !(product.monoisotopic > options.maxMass)) {
                products.push_back(product);
            }
        }
    }
    return products;
}

/// What a digest lists.
inline std::vector<Product> productsOf(const Digest& digest)
{
    std::vector<Product> products;
    for (std::size_t i = 0; i < digest.size(); ++i) {
        products.push_back({digest.starts()[i], digest.ends()[i], digest.missedCleavages()[i],
                            digest.monoisotopic()[i], digest.average()[i]});
    }
    return products;
}

} // namespace ions
