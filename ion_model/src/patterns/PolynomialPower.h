#pragma once

#include <QtGlobal>

#include <span>
#include <vector>

namespace ions {

/// Adds the product of two polynomials, coefficient by coefficient, to `sum`, which has room for
/// one coefficient less than both have together. It may not overlap them.
void addProduct(std::span<const double> left, std::span<const double> right, double* sum);

/// A run of coefficients that matter, by index.
struct CoefficientRun
{
    std::size_t begin = 0;
    std::size_t end = 0; ///< One behind the last.
};

/// What is left of `values` without the ends below `cut`: all if every value is below it.
CoefficientRun runAbove(double cut, std::span<const double> values);

/// Drops all values but the run.
void keep(CoefficientRun run, std::vector<double>* values);

/// A power of a polynomial, kept only where it matters. The polynomials here have coefficients that
/// are not negative and add up to 1, as shares do.
class PolynomialPower
{
public:
    /// Keeps its coefficients in `power`, and works in the other two. What they hold is lost.
    PolynomialPower(std::vector<double>* power, std::vector<double>* product,
                    std::vector<double>* spare);

    /// Raises `base`, whose first and last coefficient are not 0, to `exponent`. The ends of the
    /// power that lie below `cut` are left out.
    void raise(std::span<const double> base, qint64 exponent, double cut);

    /// The index of the first coefficient that was kept.
    qint64 first() const { return m_first; }

private:
    void raiseTwoTerms(double low, double high, qint64 degree, qint64 exponent, double cut);
    void raiseBySquaring(std::span<const double> base, qint64 exponent, double cut);
    void square();
    void multiply(std::span<const double> base);

    std::vector<double>* m_power;
    std::vector<double>* m_product;
    std::vector<double>* m_spare;
    qint64 m_first = 0;
};

} // namespace ions
