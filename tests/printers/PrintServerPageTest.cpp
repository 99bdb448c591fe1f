// Where the print server's web interface is: only a server reached over the network whose
// port answers has one; a private cupsd behind a socket of its own has none.

#include "printers/PrintServerPage.h"

#include <QStringList>
#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace bravcpl5::test {
namespace {

TEST(PrintServerPage, OnlyAServerThatAnswersOverTheNetworkHasOne)
{
    const struct {
        const char *name;
        QString server;
        int port;
        bool answers;
        QString page, asked;
    } cases[] = {
        {"PrivateSocket", "/tmp/sandbox/cups.sock", 631, true, "", ""},
        {"SystemSocket", "/run/cups/cups.sock", 631, true,
         "http://localhost:631/printers/Front%20Desk", "localhost:631"},
        {"OldSystemSocket", "/var/run/cups/cups.sock", 631, true,
         "http://localhost:631/printers/Front%20Desk", "localhost:631"},
        {"SystemSocketWithoutWebInterface", "/run/cups/cups.sock", 631, false, "", "localhost:631"},
        {"Localhost", "localhost", 631, true, "http://localhost:631/printers/Front%20Desk",
         "localhost:631"},
        {"HostWithPort", "print.example.com", 8631, true,
         "http://print.example.com:8631/printers/Front%20Desk", "print.example.com:8631"},
        {"IPv6Address", "::1", 631, true, "http://[::1]:631/printers/Front%20Desk", "::1:631"},
        {"Unreachable", "print.example.com", 631, false, "", "print.example.com:631"},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        QStringList asked;
        const QUrl page = PrintServerPage(c.server, c.port, QStringLiteral("printers/Front%20Desk"),
                                          [&](const QString &host, int port) {
                                              asked << host + u':' + QString::number(port);
                                              return c.answers;
                                          });
        EXPECT_EQ(page.toString(QUrl::FullyEncoded).toStdString(), c.page.toStdString());
        EXPECT_EQ(asked.join(u' ').toStdString(), c.asked.toStdString());
    }
}

// A port of this machine that listens, and the same port once it no longer does.
TEST(PrintServerPage, AskingWhetherAPortAnswers)
{
    const int listener = socket(AF_INET, SOCK_STREAM, 0);
    ASSERT_GE(listener, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    ASSERT_EQ(bind(listener, reinterpret_cast<sockaddr *>(&address), length), 0);
    ASSERT_EQ(listen(listener, 1), 0);
    ASSERT_EQ(getsockname(listener, reinterpret_cast<sockaddr *>(&address), &length), 0);
    const int port = ntohs(address.sin_port);
    EXPECT_TRUE(AcceptsConnectionSoon(QStringLiteral("127.0.0.1"), port));
    close(listener);
    EXPECT_FALSE(AcceptsConnectionSoon(QStringLiteral("127.0.0.1"), port));
}

} // namespace
} // namespace bravcpl5::test
