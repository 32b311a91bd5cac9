// Fetching, against a server of this process.
#include "platform/portable/CurlFetch.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <map>
#include <thread>

#include "platform/RunTimeError.h"

namespace Quillon {
namespace {

/// Answers each path with bytes of its own, one connection at a time.
class LocalServer {
public:
    explicit LocalServer(std::map<std::string, std::string> of) : answers(std::move(of)) {
        listening = ::socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = ::htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto* const plain = reinterpret_cast<sockaddr*>(&address);
        works = ::bind(listening, plain, size) == 0 && ::listen(listening, 8) == 0 &&
                ::getsockname(listening, plain, &size) == 0;
        Host = "127.0.0.1:" + std::to_string(::ntohs(address.sin_port));
        if (works) thread = std::thread([this] { Serve(); });
    }
    ~LocalServer() {
        ::shutdown(listening, SHUT_RDWR);
        if (thread.joinable()) thread.join();
        ::close(listening);
    }
    LocalServer(const LocalServer&) = delete;
    LocalServer& operator=(const LocalServer&) = delete;

    std::string Host;

private:
    void Serve() {
        for (;;) {
            const int connection = ::accept(listening, nullptr, nullptr);
            if (connection < 0) return;
            std::string request;
            std::array<char, 4096> bytes{};
            while (request.find("\r\n\r\n") == std::string::npos) {
                const ssize_t read = ::recv(connection, bytes.data(), bytes.size(), 0);
                if (read <= 0) break;
                request.append(bytes.data(), static_cast<std::size_t>(read));
            }
            Answer(connection, request.substr(0, request.find(' ', 4)));
            ::close(connection);
        }
    }
    void Answer(int connection, const std::string& line) {
        if (line == "GET /silent") {  // until the other side gives up
            char byte = 0;
            while (::recv(connection, &byte, 1, 0) > 0) {
            }
            return;
        }
        const std::string path = line.size() > 4 ? line.substr(4) : "";
        std::string answer = answers.contains(path) ? answers[path] : "HTTP/1.1 404 Not Found\r\n\r\nnone";
        const bool endless = path == "/endless";
        while (::send(connection, answer.data(), answer.size(), MSG_NOSIGNAL) > 0 && endless) {
            answer.assign(1 << 16, 'x');
        }
    }

    std::map<std::string, std::string> answers;
    int listening = -1;
    bool works = false;
    std::thread thread;
};

std::string Moved(const std::string& where) {
    return "HTTP/1.1 302 Found\r\nContent-Length: 0\r\nConnection: close\r\nLocation: " + where + "\r\n\r\n";
}

constexpr const char* Head = "HTTP/1.1 200 OK\r\nConnection: close\r\n";

TEST(CurlFetchTest, WhatIsThereComesAndWhatIsNotIsToldWhy) {
    ::setenv("NO_PROXY", "*", 1);
    LocalServer server({{"/a", std::string(Head) + "\r\ne|-0-2-|\n"},
                        {"/moved", Moved("/a")},
                        {"/round", Moved("/round")},
                        {"/out", Moved("file:///etc/hostname")},
                        {"/elsewhere", Moved("http://localhost:1/a")},
                        {"/announced", std::string(Head) + "Content-Length: 16777217\r\n\r\nx"},
                        {"/endless", std::string(Head) + "\r\n"}});
    CurlFetch fetch;
    const auto outcome = [&](const std::string& path) {
        try {
            const auto bytes = fetch.Fetch("http://" + server.Host + path, [] { return true; });
            return bytes.value_or("cancelled");
        } catch (const RunTimeError& error) {
            EXPECT_NE(error.Description().find(server.Host + path), std::string::npos) << "it names the address";
            return "! " + error.Description().substr(error.Description().rfind(": ") + 2);
        }
    };
    const std::string first = outcome("/a");
    if (first == "! libcurl is not on this machine") GTEST_SKIP() << first;
    EXPECT_EQ(first, "e|-0-2-|\n");
    EXPECT_EQ(outcome("/moved"), "e|-0-2-|\n");
    for (const char* refused : {"/none", "/round", "/out", "/announced"})
        EXPECT_EQ(outcome(refused)[0], '!') << refused;
    EXPECT_EQ(outcome("/elsewhere"), "! it was moved to localhost");
    EXPECT_EQ(outcome("/endless"), "! more than 16 MiB");
    int asked = 0;
    EXPECT_FALSE(fetch.Fetch("http://" + server.Host + "/silent", [&] { return ++asked < 3; }));
    EXPECT_THROW(fetch.Fetch("ftp://" + server.Host + "/a", {}), RunTimeError);
}

}  // namespace
}  // namespace Quillon
