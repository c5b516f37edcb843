#pragma once

#include "Line.h"

#include <QByteArray>
#include <QCryptographicHash>

#include <cstdio>

/// The answers of one family of requests: counted, hashed, and printed if somebody wants to read
/// them.
///
/// The hash is SHA-256 over the lines as they are printed, so `sha256sum` gives the same.
class Answers
{
public:
    /// \param listing where the lines go as well; may be null.
    explicit Answers(std::FILE* listing)
        : m_listing(listing)
    {
    }

    /// Takes one request: the function, then its arguments and its results.
    template <typename... Values>
    void add(const char* request, const Values&... values)
    {
        Line line(request);
        (line << ... << values);
        ++m_count;
        finish(line);
    }

    /// Takes a further line on the last request, for results of many parts.
    template <typename... Values>
    void detail(const Values&... values)
    {
        Line line(" ");
        (line << ... << values);
        finish(line);
    }

    int count() const { return m_count; }
    QByteArray hash() const { return m_hash.result().toHex(); }

private:
    void finish(const Line& line);

    std::FILE* m_listing;
    int m_count = 0;
    QCryptographicHash m_hash = QCryptographicHash(QCryptographicHash::Sha256);
};
