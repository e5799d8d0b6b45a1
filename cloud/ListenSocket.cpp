#include "cloud/ListenSocket.h"

#include "base/DescribedError.h"

#include <cerrno>
#include <cstring>
#include <memory>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>

namespace orvex {
namespace {

QString reason(int code) {
  switch (code) {
    case EADDRINUSE:
      return QStringLiteral("bu portu başka bir program kullanıyor; --port ile başka bir port ver");
    case EACCES:
      return QStringLiteral("bu port için izin yok; 1024 ya da daha büyük bir port ver");
    case EADDRNOTAVAIL:
      return QStringLiteral("bu adres bu bilgisayarın değil; --address ile başka bir adres ver");
    default:
      return QString::fromLocal8Bit(std::strerror(code));
  }
}

}  // namespace

ListenSocket listenAt(const QByteArray& address, std::uint16_t port) {
  addrinfo wanted{};
  wanted.ai_flags = AI_NUMERICHOST | AI_NUMERICSERV;
  wanted.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  if (::getaddrinfo(address.constData(), QByteArray::number(port).constData(), &wanted, &found) !=
      0)
    throw DescribedError(
        QStringLiteral("\"%1\" bir IP adresi değil. 127.0.0.1 ya da ::1 gibi bir adres ver.")
            .arg(QString::fromUtf8(address)));
  const std::unique_ptr<addrinfo, decltype(&::freeaddrinfo)> place(found, &::freeaddrinfo);
  ListenSocket made{FileDescriptor(::socket(place->ai_family, SOCK_STREAM | SOCK_CLOEXEC, 0))};
  const int fd = made.socket.get();
  const int on = 1;
  sockaddr_storage bound{};
  socklen_t size = sizeof bound;
  if (fd < 0 || ::setsockopt(fd, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on) != 0 ||
      ::bind(fd, place->ai_addr, place->ai_addrlen) != 0 || ::listen(fd, SOMAXCONN) != 0 ||
      ::getsockname(fd, reinterpret_cast<sockaddr*>(&bound), &size) != 0)
    throw DescribedError(QStringLiteral("%1 adresinin %2 portu dinlenemiyor: %3.")
                             .arg(QString::fromUtf8(address))
                             .arg(port)
                             .arg(reason(errno)));
  // The port lies at the same place in addresses of both versions.
  made.port = ntohs(reinterpret_cast<const sockaddr_in&>(bound).sin_port);
  return made;
}

}  // namespace orvex
