// A network of known slowness between a program and a server on the same machine: what either says
// reaches the other a fixed time later, and the bytes of one direction do not wait for the other's.
#pragma once

#include <chrono>
#include <list>
#include <thread>
#include <vector>

namespace kelvane::bench {

class LatencyProxy {
public:
    // Listens on a port of the loopback for the server at `port` there. `delay`: each way. Throws
    // std::runtime_error.
    LatencyProxy(int port, std::chrono::microseconds delay);
    ~LatencyProxy();
    LatencyProxy(const LatencyProxy&) = delete;
    LatencyProxy& operator=(const LatencyProxy&) = delete;

    int Port() const { return mPort; }

private:
    void Accept();
    void Carry(int from, int to) const;

    int mServerPort;
    std::chrono::microseconds mDelay;
    int mListener = -1;
    int mPort = 0;
    // The acceptor's, until it has ended.
    std::vector<int> mSockets;
    std::list<std::thread> mCarriers;
    std::thread mAcceptor;
};

}  // namespace kelvane::bench
