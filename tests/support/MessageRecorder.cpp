#include "support/MessageRecorder.h"

#include "support/TestEnvironment.h"

#include "library/Registry.h"

#include <QTemporaryDir>

namespace bravcpl5::test {

namespace {
// Outside a MessageRecorder a message is a test failure: it would block a real user.
QMessageBox::StandardButton unexpected(const Message &message)
{
    ADD_FAILURE() << "unexpected message: " << message.text.toStdString();
    return QMessageBox::Ok;
}

QTemporaryDir *registryFolder = nullptr;
} // namespace

MessageRecorder::MessageRecorder(QList<QMessageBox::StandardButton> answers)
    : m_answers(std::move(answers))
{
    SetMessageHandler([this](const Message &message) {
        m_messages.append(message);
        if (m_answers.isEmpty())
            return QMessageBox::Ok;
        return m_answers.size() > 1 ? m_answers.takeFirst() : m_answers.first();
    });
}

MessageRecorder::~MessageRecorder() { SetMessageHandler(unexpected); }

QStringList MessageRecorder::texts() const
{
    QStringList list;
    for (const Message &m : m_messages)
        list.append(m.text);
    return list;
}

void TestEnvironment::SetUp()
{
    SetMessageHandler(unexpected);
    registryFolder = new QTemporaryDir;
    SetRegistryFile(registryFolder->filePath(QStringLiteral("HKEY_CURRENT_USER.ini")));
}

void TestEnvironment::TearDown()
{
    SetMessageHandler({});
    SetRegistryFile(QString());
    delete registryFolder;
    registryFolder = nullptr;
}

} // namespace bravcpl5::test
