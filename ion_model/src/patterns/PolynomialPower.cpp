#include "patterns/PolynomialPower.h"

#include <algorithm>
#include <bit>
#include <numeric>

namespace ions {

namespace {

/// Adds `factor` times each of the values to `sum`.
void addMultiple(double factor, std::span<const double> values, double* __restrict sum)
{
    const double* __restrict source = values.data();
    const std::size_t size = values.size();
    for (std::size_t i = 0; i < size; ++i)
        sum[i] += factor * source[i];
}

/// Adds `first` times the values to `sum`, and `second` times the values one place further on.
void addTwoMultiples(double first, double second, std::span<const double> values,
                     double* __restrict sum)
{
    const double* __restrict source = values.data();
    const std::size_t size = values.size();
    sum[0] += first * source[0];
    for (std::size_t i = 1; i < size; ++i)
        sum[i] += first * source[i] + second * source[i - 1];
    sum[size] += second * source[size - 1];
}

} // namespace

/// The longer polynomial is gone through in the inner loop, for two coefficients of the other at
/// once: then the processor reads in the pairs that it has just written, and need not wait until
/// they have reached the memory.
void addProduct(std::span<const double> left, std::span<const double> right, double* sum)
{
    if (left.size() > right.size())
        std::swap(left, right);
    std::size_t i = 0;
    for (; i + 1 < left.size(); i += 2)
        addTwoMultiples(left[i], left[i + 1], right, sum + i);
    if (i < left.size())
        addMultiple(left[i], right, sum + i);
}

CoefficientRun runAbove(double cut, std::span<const double> values)
{
    const auto matters = [cut](double value) {
        return value >= cut;
    };
    const auto first = std::find_if(values.begin(), values.end(), matters);
    if (first == values.end())
        return {0, values.size()};
    const auto last = std::find_if(values.rbegin(), values.rend(), matters);
    return {std::size_t(first - values.begin()), std::size_t(last.base() - values.begin())};
}

void keep(CoefficientRun run, std::vector<double>* values)
{
    values->resize(run.end);
    values->erase(values->begin(), values->begin() + std::ptrdiff_t(run.begin));
}

PolynomialPower::PolynomialPower(std::vector<double>* power, std::vector<double>* product,
                                 std::vector<double>* spare)
    : m_power(power)
    , m_product(product)
    , m_spare(spare)
{
}

void PolynomialPower::raise(std::span<const double> base, qint64 exponent, double cut)
{
    m_first = 0;
    const bool hasTwoTerms =
        base.size() > 1 && std::all_of(base.begin() + 1, base.end() - 1,
                                       [](double coefficient) { return coefficient == 0.0; });
    if (exponent == 0 || base.size() == 1)
        m_power->assign(1, 1.0);
    else if (hasTwoTerms)
        raiseTwoTerms(base.front(), base.back(), qint64(base.size()) - 1, exponent, cut);
    else
        raiseBySquaring(base, exponent, cut);
}

/// Walks from the largest coefficient outwards by the ratio of neighbours, so that nothing
/// underflows, and learns the scale from the sum, which is 1.
void PolynomialPower::raiseTwoTerms(double low, double high, qint64 degree, qint64 exponent,
                                    double cut)
{
    const double ratio = high / low;
    const auto mode = std::min(exponent, qint64(double(exponent + 1) * high));
    std::vector<double>& terms = *m_spare;
    terms.assign(1, 1.0);
    double value = 1.0;
    for (qint64 k = mode; k > 0 && value >= cut; --k) {
        value *= double(k) / (double(exponent - k + 1) * ratio);
        terms.push_back(value);
    }
    std::reverse(terms.begin(), terms.end());
    const qint64 lowest = mode + 1 - qint64(terms.size());
    value = 1.0;
    for (qint64 k = mode; k < exponent && value >= cut; ++k) {
        value *= double(exponent - k) * ratio / double(k + 1);
        terms.push_back(value);
    }
    const double scale = 1.0 / std::accumulate(terms.begin(), terms.end(), 0.0);
    m_power->assign((terms.size() - 1) * std::size_t(degree) + 1, 0.0);
    for (std::size_t i = 0; i < terms.size(); ++i)
        (*m_power)[i * std::size_t(degree)] = scale * terms[i];
    m_first = lowest * degree;
}

/// Squares and multiplies along the digits of the exponent. What is cut off a lower power is
/// missing from the result exponent / power times, so that lower powers keep more of their ends.
void PolynomialPower::raiseBySquaring(std::span<const double> base, qint64 exponent, double cut)
{
    m_power->assign(base.begin(), base.end());
    for (int digit = int(std::bit_width(quint64(exponent))) - 2; digit >= 0; --digit) {
        const qint64 reached = exponent >> digit;
        square();
        if (reached % 2 == 1)
            multiply(base);
        const CoefficientRun run = runAbove(cut * double(reached) / double(exponent), *m_power);
        keep(run, m_power);
        m_first += qint64(run.begin);
    }
}

void PolynomialPower::square()
{
    const std::size_t size = m_power->size();
    m_product->assign(2 * size - 1, 0.0);
    const std::span<const double> factors(*m_power);
    for (std::size_t i = 0; i < size; ++i) {
        if (factors[i] == 0.0)
            continue;
        (*m_product)[2 * i] += factors[i] * factors[i];
        addMultiple(2.0 * factors[i], factors.subspan(i + 1), m_product->data() + 2 * i + 1);
    }
    m_power->swap(*m_product);
    m_first *= 2;
}

void PolynomialPower::multiply(std::span<const double> base)
{
    m_product->assign(m_power->size() + base.size() - 1, 0.0);
    addProduct(base, *m_power, m_product->data());
    m_power->swap(*m_product);
}

} // namespace ions
