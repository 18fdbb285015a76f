#include "tests/support/network_proxy.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <deque>
#include <stdexcept>
#include <string>

namespace kelvane::support {

namespace {

using Clock = std::chrono::steady_clock;

// Bytes on their way, and when they arrive.
struct Parcel {
    Clock::time_point due;
    std::string bytes;
};

sockaddr_in Loopback(int port) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

int NewSocket() {
    const int made = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (made < 0) throw std::runtime_error(std::string("socket: ") + std::strerror(errno));
    return made;
}

// Small pieces wait for nothing but the delay.
void SendAtOnce(int socket) {
    const int on = 1;
    setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

bool SendAll(int to, const std::string& bytes) {
    std::size_t sent = 0;
    while (sent < bytes.size()) {
        const ssize_t count = send(to, bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
        if (count <= 0) return false;
        sent += static_cast<std::size_t>(count);
    }
    return true;
}

// Waits until there is something to read, or until `due` when something is on its way.
bool WaitFor(int from, const std::deque<Parcel>& onTheWay) {
    pollfd wanted{from, POLLIN, 0};
    if (onTheWay.empty()) return ppoll(&wanted, 1, nullptr, nullptr) > 0;
    const auto left =
        std::chrono::duration_cast<std::chrono::nanoseconds>(onTheWay.front().due - Clock::now());
    const timespec wait{0, std::max<long>(static_cast<long>(left.count()), 0)};
    return ppoll(&wanted, 1, &wait, nullptr) > 0;
}

}  // namespace

NetworkProxy::NetworkProxy(int port, std::chrono::microseconds delay)
    : mServerPort(port), mDelay(delay), mListener(NewSocket()) {
    sockaddr_in address = Loopback(0);
    socklen_t size = sizeof address;
    if (bind(mListener, reinterpret_cast<sockaddr*>(&address), size) != 0 ||
        listen(mListener, SOMAXCONN) != 0 ||
        getsockname(mListener, reinterpret_cast<sockaddr*>(&address), &size) != 0) {
        close(mListener);
        throw std::runtime_error(std::string("no port: ") + std::strerror(errno));
    }
    mPort = ntohs(address.sin_port);
    mAcceptor = std::thread([this] { Accept(); });
}

NetworkProxy::~NetworkProxy() {
    shutdown(mListener, SHUT_RDWR);
    mAcceptor.join();
    for (const int socket : mSockets) shutdown(socket, SHUT_RDWR);
    for (std::thread& carrier : mCarriers) carrier.join();
    for (const int socket : mSockets) close(socket);
    close(mListener);
}

void NetworkProxy::Break(const std::optional<NetworkCut>& cut) {
    const std::lock_guard lock(mMutex);
    mCut = cut;
    mAnswers.clear();
    mAnswering = true;
    mBroke = false;
}

bool NetworkProxy::Mend() {
    const std::lock_guard lock(mMutex);
    mCut.reset();
    mGone = false;
    return mBroke;
}

std::vector<std::size_t> NetworkProxy::Answers() const {
    const std::lock_guard lock(mMutex);
    return mAnswers;
}

bool NetworkProxy::IsGone() const {
    const std::lock_guard lock(mMutex);
    return mGone;
}

NetworkProxy::Passage NetworkProxy::BreakHere(std::size_t bytes) {
    mBroke = true;
    mGone = mCut->forGood;
    mCut.reset();
    return {bytes, true};
}

NetworkProxy::Passage NetworkProxy::Pass(bool isAnswer, std::size_t bytes) {
    const std::lock_guard lock(mMutex);
    if (mGone) return {0, true};
    if (!isAnswer && mAnswering) mAnswers.push_back(0);
    mAnswering = isAnswer;
    const bool isHere = mCut && mCut->turn == mAnswers.size();
    if (!isAnswer) {
        return isHere && !mCut->answerBytes ? BreakHere(0) : Passage{bytes, false};
    }
    if (mAnswers.empty()) return {bytes, false};
    const std::size_t before = mAnswers.back();
    mAnswers.back() += bytes;
    if (!isHere || mAnswers.back() <= mCut->answerBytes) return {bytes, false};
    return BreakHere(*mCut->answerBytes - before);
}

void NetworkProxy::Accept() {
    for (;;) {
        const int client = accept4(mListener, nullptr, nullptr, SOCK_CLOEXEC);
        if (client < 0) return;
        const int server = NewSocket();
        const sockaddr_in address = Loopback(mServerPort);
        const bool reached =
            connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
        SendAtOnce(client);
        SendAtOnce(server);
        mSockets.insert(mSockets.end(), {client, server});
        if (!reached || IsGone()) {
            shutdown(client, SHUT_RDWR);
            shutdown(server, SHUT_RDWR);
            continue;
        }
        mCarriers.emplace_back([this, client, server] { Carry(client, server, false); });
        mCarriers.emplace_back([this, client, server] { Carry(server, client, true); });
    }
}

void NetworkProxy::Carry(int from, int to, bool isAnswer) {
    std::deque<Parcel> onTheWay;
    std::array<char, 65536> piece;
    bool open = true;
    bool breaks = false;
    while (open || !onTheWay.empty()) {
        if (open && WaitFor(from, onTheWay)) {
            const ssize_t count = recv(from, piece.data(), piece.size(), 0);
            if (count > 0) {
                const Passage passage = Pass(isAnswer, static_cast<std::size_t>(count));
                breaks = passage.breaks;
                onTheWay.push_back(
                    {Clock::now() + mDelay, std::string(piece.data(), passage.bytes)});
            }
            open = count > 0 && !breaks;
        } else if (!open) {
            std::this_thread::sleep_until(onTheWay.front().due);
        }
        while (!onTheWay.empty() && onTheWay.front().due <= Clock::now()) {
            if (!SendAll(to, onTheWay.front().bytes)) return;
            onTheWay.pop_front();
        }
    }
    if (breaks) shutdown(from, SHUT_RDWR);
    shutdown(to, breaks ? SHUT_RDWR : SHUT_WR);
}

}  // namespace kelvane::support
