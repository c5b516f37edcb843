#pragma once

#include <Parsed.h>

#include <QString>

namespace tool {

/// A usage that makes no sense: the program says so and ends with status 2.
struct UsageError
{
    QString message; ///< A sentence.
};

/// Where an input came from: a file, or the arguments, and a line of it.
struct Place
{
    QString source;  ///< What messages call it.
    qint64 line = 1; ///< From 1; for arguments their number.
};

/// Tells on standard error what was refused, and remembers that something was.
class Complaints
{
public:
    /// Writes `SOURCE:LINE:POSITION: sentence`. A refusal of the whole has position 0.
    void report(const Place& place, const ions::Error& error);

    /// Tells whether anything was refused. The program then ends with status 1.
    bool areThere() const { return m_areThere; }

private:
    bool m_areThere = false;
};

} // namespace tool
