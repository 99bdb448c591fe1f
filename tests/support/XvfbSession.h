#pragma once

// A private X server (Xvfb) with a small window manager (openbox) on it, for the tests about
// real windows: frames, captions and where the window manager puts things. The server picks
// a free display number itself; both processes are stopped by their process ids when the
// session ends. Test programs that set BRAVCPL5_TEST_X11 get one before their QApplication
// exists (support/TestMain.cpp), and then run on Qt's xcb platform.

#include <QString>
#include <QTemporaryDir>
#include <sys/types.h>

namespace bravcpl5::test {

class XvfbSession
{
public:
    // Starts the server and the window manager and waits (a few seconds at most) until the
    // manager has taken the screen. On failure nothing is left running and whyNot() says why.
    XvfbSession();
    ~XvfbSession();
    XvfbSession(const XvfbSession &) = delete;
    XvfbSession &operator=(const XvfbSession &) = delete;

    bool isRunning() const { return m_manager > 0; }
    QString display() const { return m_display; }
    QString whyNot() const { return m_whyNot; }

    // The session of this test program; null when it asked for none.
    static const XvfbSession *current();
    static void setCurrent(const XvfbSession *session);

private:
    bool startServer();
    bool startManager();
    void stop();

    pid_t m_server = 0;
    pid_t m_manager = 0;
    QString m_display;
    QTemporaryDir m_home; // the window manager's home, so that it writes nothing of the user's
    QString m_whyNot;
};

// What xwininfo, an X client of its own, reports of a top-level window: its client area in
// root coordinates and the frame extents its window manager set (all zero without one).
struct X11WindowFacts {
    int x = 0, y = 0, width = 0, height = 0;
    int frameLeft = 0, frameRight = 0, frameTop = 0, frameBottom = 0;
};
X11WindowFacts QueryX11Window(unsigned long windowId);

// Skips the test unless it runs on a private X server with its window manager.
#define SKIP_WITHOUT_X11_SESSION()                                                                 \
    if (!bravcpl5::test::XvfbSession::current()                                                    \
        || !bravcpl5::test::XvfbSession::current()->isRunning())                                   \
    GTEST_SKIP() << (bravcpl5::test::XvfbSession::current()                                        \
                         ? bravcpl5::test::XvfbSession::current()->whyNot().toStdString()          \
                         : std::string("no private X server was asked for (BRAVCPL5_TEST_X11)"))

} // namespace bravcpl5::test
