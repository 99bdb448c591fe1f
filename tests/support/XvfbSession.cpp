#include "support/XvfbSession.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QStringList>
#include <QThread>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

extern char **environ;

namespace bravcpl5::test {
namespace {

const XvfbSession *currentSession = nullptr;

// argv and envp for posix_spawn, kept alive with their strings.
struct Arguments {
    explicit Arguments(const QStringList &texts)
    {
        for (const QString &text : texts)
            storage.push_back(text.toLocal8Bit());
        for (QByteArray &text : storage)
            pointers.push_back(text.data());
        pointers.push_back(nullptr);
    }
    char **data() { return pointers.data(); }
    std::vector<QByteArray> storage;
    std::vector<char *> pointers;
};

// This process's environment with `changes` ("NAME=value") put over it.
QStringList environmentWith(const QStringList &changes)
{
    QStringList result;
    for (char **entry = environ; *entry; ++entry) {
        const QString text = QString::fromLocal8Bit(*entry);
        const QString name = text.section(QLatin1Char('='), 0, 0) + QLatin1Char('=');
        bool replaced = false;
        for (const QString &change : changes)
            replaced = replaced || change.startsWith(name);
        if (!replaced)
            result.append(text);
    }
    return result + changes;
}

// Starts `program` with standard input and error on /dev/null and standard output on
// `outputFd` (/dev/null when -1). Descriptors without FD_CLOEXEC stay open in the child,
// which is ended with this process however it ends (a crash, a killed test). 0 when it
// cannot be forked; a program that cannot run ends at once with status 127.
pid_t spawn(const QStringList &program, const QStringList &environment, int outputFd = -1)
{
    Arguments argv(program);
    Arguments envp(environment);
    const pid_t pid = fork();
    if (pid != 0)
        return pid < 0 ? 0 : pid;
    // The child: only async-signal-safe calls until exec.
    prctl(PR_SET_PDEATHSIG, SIGTERM);
    const int null = open("/dev/null", O_RDWR);
    dup2(null, 0);
    dup2(outputFd >= 0 ? outputFd : null, 1);
    dup2(null, 2);
    execvpe(argv.data()[0], argv.data(), envp.data());
    _exit(127);
}

// Reads from `fd` until end of file or `timeoutMs` has passed.
QByteArray readAll(int fd, int timeoutMs, bool untilNewline)
{
    QByteArray text;
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < timeoutMs) {
        pollfd waiting{fd, POLLIN, 0};
        if (poll(&waiting, 1, int(timeoutMs - clock.elapsed())) <= 0)
            break;
        char buffer[4096];
        const ssize_t got = read(fd, buffer, sizeof buffer);
        if (got <= 0)
            break;
        text.append(buffer, got);
        if (untilNewline && text.contains('\n'))
            break;
    }
    return text;
}

// Runs a short-lived program to its end (five seconds at most) and returns its output.
QByteArray runToEnd(const QStringList &program)
{
    int pipeFds[2];
    if (pipe2(pipeFds, O_CLOEXEC) != 0)
        return {};
    const pid_t pid = spawn(program, environmentWith({}), pipeFds[1]);
    close(pipeFds[1]);
    const QByteArray output = pid ? readAll(pipeFds[0], 5000, false) : QByteArray();
    close(pipeFds[0]);
    if (pid) {
        kill(pid, SIGKILL); // no-op when it has ended, as it should have
        waitpid(pid, nullptr, 0);
    }
    return output;
}

// Stops a child: SIGTERM, then SIGKILL when it has not ended within two seconds.
void stopProcess(pid_t pid)
{
    if (pid <= 0)
        return;
    kill(pid, SIGTERM);
    for (int i = 0; i < 200; ++i) {
        if (waitpid(pid, nullptr, WNOHANG) == pid)
            return;
        QThread::msleep(10);
    }
    kill(pid, SIGKILL);
    waitpid(pid, nullptr, 0);
}

int field(const QString &text, const char *pattern)
{
    const QRegularExpressionMatch match = QRegularExpression(QLatin1String(pattern)).match(text);
    return match.hasMatch() ? match.captured(1).toInt() : 0;
}

} // namespace

XvfbSession::XvfbSession()
{
    if (!startServer() || !startManager())
        stop();
}

XvfbSession::~XvfbSession() { stop(); }

const XvfbSession *XvfbSession::current() { return currentSession; }

void XvfbSession::setCurrent(const XvfbSession *session) { currentSession = session; }

bool XvfbSession::startServer()
{
    if (QStandardPaths::findExecutable(QStringLiteral("Xvfb")).isEmpty()) {
        m_whyNot = QStringLiteral("Xvfb is not installed (scripts/install-deps installs it)");
        return false;
    }
    // -displayfd: the server takes the first free display and writes its number there once
    // it accepts connections, so parallel test processes never race for a number.
    int pipeFds[2];
    if (pipe(pipeFds) != 0)
        return false;
    fcntl(pipeFds[0], F_SETFD, FD_CLOEXEC);
    m_server = spawn({QStringLiteral("Xvfb"), QStringLiteral("-displayfd"),
                      QString::number(pipeFds[1]), QStringLiteral("-screen"), QStringLiteral("0"),
                      QStringLiteral("1280x1024x24"), QStringLiteral("-nolisten"),
                      QStringLiteral("tcp"), QStringLiteral("-noreset")},
                     environmentWith({}));
    close(pipeFds[1]);
    const QByteArray number = m_server ? readAll(pipeFds[0], 10000, true).trimmed() : QByteArray();
    close(pipeFds[0]);
    if (number.isEmpty()) {
        m_whyNot = QStringLiteral("Xvfb did not start");
        return false;
    }
    m_display = QLatin1Char(':') + QString::fromLatin1(number);
    return true;
}

bool XvfbSession::startManager()
{
    if (QStandardPaths::findExecutable(QStringLiteral("openbox")).isEmpty()) {
        m_whyNot = QStringLiteral("openbox is not installed (scripts/install-deps installs it)");
        return false;
    }
    const QStringList environment = environmentWith(
        {QStringLiteral("DISPLAY=") + m_display, QStringLiteral("HOME=") + m_home.path(),
         QStringLiteral("XDG_CONFIG_HOME=") + m_home.filePath(QStringLiteral("config")),
         QStringLiteral("XDG_CACHE_HOME=") + m_home.filePath(QStringLiteral("cache"))});
    m_manager = spawn({QStringLiteral("openbox"), QStringLiteral("--sm-disable")}, environment);
    if (!m_manager) {
        m_whyNot = QStringLiteral("openbox did not start");
        return false;
    }
    // Openbox announces itself (_NET_SUPPORTING_WM_CHECK) before it has read its settings and
    // theme; the work area is set after that, just before it manages windows. A window mapped
    // earlier may be framed without Qt hearing of it.
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 10000) {
        const QByteArray answer = runToEnd({QStringLiteral("xprop"), QStringLiteral("-display"),
                                            m_display, QStringLiteral("-root"),
                                            QStringLiteral("_NET_WORKAREA")});
        if (answer.contains(" = "))
            return true;
        QThread::msleep(50);
    }
    m_whyNot = QStringLiteral("openbox did not take the screen within ten seconds");
    return false;
}

void XvfbSession::stop()
{
    stopProcess(m_manager);
    stopProcess(m_server);
    m_manager = 0;
    m_server = 0;
}

X11WindowFacts QueryX11Window(unsigned long windowId)
{
    const XvfbSession *session = XvfbSession::current();
    if (!session || !session->isRunning())
        return {};
    const QString text = QString::fromLocal8Bit(
        runToEnd({QStringLiteral("xwininfo"), QStringLiteral("-stats"), QStringLiteral("-wm"),
                  QStringLiteral("-display"), session->display(), QStringLiteral("-id"),
                  QString::number(windowId)}));
    X11WindowFacts facts;
    facts.x = field(text, R"(Absolute upper-left X:\s*(-?\d+))");
    facts.y = field(text, R"(Absolute upper-left Y:\s*(-?\d+))");
    facts.width = field(text, R"(\n\s*Width:\s*(\d+))");
    facts.height = field(text, R"(\n\s*Height:\s*(\d+))");
    const QRegularExpressionMatch extents =
        QRegularExpression(QStringLiteral(R"(Frame extents:\s*(\d+),\s*(\d+),\s*(\d+),\s*(\d+))"))
            .match(text);
    if (extents.hasMatch()) {
        facts.frameLeft = extents.captured(1).toInt();
        facts.frameRight = extents.captured(2).toInt();
        facts.frameTop = extents.captured(3).toInt();
        facts.frameBottom = extents.captured(4).toInt();
    }
    return facts;
}

} // namespace bravcpl5::test
