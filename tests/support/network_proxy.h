// A network between a program and a server on the same machine: what either says reaches the other
// a fixed time later, the bytes of one direction do not wait for the other's, and a connection
// breaks where it is told to.
#pragma once

#include <chrono>
#include <cstddef>
#include <list>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace kelvane::support {

// Where a connection is to break. A turn is what a program says before it is answered, and the
// answer; turns are counted over all connections, of which one at a time says something.
struct NetworkCut {
    std::size_t turn = 1;  // of those to come, from 1
    // Of the answer so many bytes still pass, once it is there; nothing: the request does not even
    // reach the server.
    std::optional<std::size_t> answerBytes = std::nullopt;
    bool forGood = false;  // every other connection breaks too, until it is mended
};

class NetworkProxy {
public:
    // Listens on a port of the loopback for the server at `port` there. `delay`: each way. Throws
    // std::runtime_error.
    explicit NetworkProxy(int port, std::chrono::microseconds delay = {});
    ~NetworkProxy();
    NetworkProxy(const NetworkProxy&) = delete;
    NetworkProxy& operator=(const NetworkProxy&) = delete;

    int Port() const { return mPort; }

    // Counts turns anew, and breaks the connection as told.
    void Break(const std::optional<NetworkCut>& cut);
    // Nothing breaks from here on. Returns whether anything did.
    bool Mend();
    // How many bytes each answer had since Break().
    std::vector<std::size_t> Answers() const;

private:
    // What becomes of a piece that arrived.
    struct Passage {
        std::size_t bytes;  // so many of it pass
        bool breaks;
    };
    void Accept();
    void Carry(int from, int to, bool isAnswer);
    Passage Pass(bool isAnswer, std::size_t bytes);
    bool IsGone() const;
    Passage BreakHere(std::size_t bytes);

    int mServerPort;
    std::chrono::microseconds mDelay;
    int mListener = -1;
    int mPort = 0;
    mutable std::mutex mMutex;  // of what is counted and broken
    std::optional<NetworkCut> mCut;
    std::vector<std::size_t> mAnswers;
    bool mAnswering = false;
    bool mBroke = false;
    bool mGone = false;
    // The acceptor's, until it has ended.
    std::vector<int> mSockets;
    std::list<std::thread> mCarriers;
    std::thread mAcceptor;
};

}  // namespace kelvane::support
