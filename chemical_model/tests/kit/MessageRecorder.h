#pragma once

#include <QList>
#include <QString>
#include <QtGlobal>

/// Collects what goes through Qt's logging while it lives. One at a time.
class MessageRecorder
{
public:
    struct Message
    {
        QtMsgType type;
        QString category;
        QString file;
        QString function;
        QString text;
    };

    MessageRecorder()
    {
        messages().clear();
        m_previous = qInstallMessageHandler(record);
    }
    ~MessageRecorder() { qInstallMessageHandler(m_previous); }
    MessageRecorder(const MessageRecorder&) = delete;
    MessageRecorder& operator=(const MessageRecorder&) = delete;

    static QList<Message>& messages()
    {
        static QList<Message> recorded;
        return recorded;
    }

private:
    static void record(QtMsgType type, const QMessageLogContext& context, const QString& text)
    {
        messages().append({type, QString::fromLatin1(context.category),
                           QString::fromLatin1(context.file), QString::fromLatin1(context.function),
                           text});
    }

    QtMessageHandler m_previous;
};
