#include "IsotopeConfiguration.h"

#include "support/Logging.h"
#include "support/TruncateToInt.h"

#include <limits>
#include <utility>

namespace chem {

void normalize(QList<double>& values)
{
    // The sum is cut to a whole number at each step on purpose: percentages are scaled, while
    // fractions are taken as they were written.
    int sum = 0;
    for (const double value : std::as_const(values))
        sum = truncateToInt(sum + value);
    if (sum < std::numeric_limits<double>::epsilon()) {
        qCDebug(genericCategory, "skipping normalization. sum less than threshold");
        return;
    }
    const double factor = 1.0 / sum;
    for (double& value : values)
        value *= factor;
}

} // namespace chem
