#include "Answers.h"

void Answers::finish(const Line& line)
{
    const QByteArray text = line.text() + '\n';
    m_hash.addData(text);
    if (m_listing)
        std::fwrite(text.constData(), 1, static_cast<std::size_t>(text.size()), m_listing);
}
