#pragma once

#include "library/Messages.h"

#include <QList>

namespace bravcpl5::test {

// Records every message the library shows while it lives, and answers each with the
// next of `answers` (the last one repeats; Ok when none is given).
class MessageRecorder
{
public:
    explicit MessageRecorder(QList<QMessageBox::StandardButton> answers = {});
    ~MessageRecorder();
    MessageRecorder(const MessageRecorder &) = delete;
    MessageRecorder &operator=(const MessageRecorder &) = delete;

    const QList<Message> &messages() const { return m_messages; }
    QStringList texts() const;

private:
    QList<QMessageBox::StandardButton> m_answers;
    QList<Message> m_messages;
};

} // namespace bravcpl5::test
