// The searches over real sockets: on the loopback, and between two network namespaces that the test makes for itself,
// so that a broadcast is really sent and heard and nothing leaves them.
#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <thread>

#include "platform/posix/file_handle.h"
#include "platform/posix/posix_sockets.h"
#include "platform/posix/posix_system.h"
#include "scanner/nets.h"
#include "tests/support/scratch_folder.h"

namespace set32 {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;
using Clock = std::chrono::steady_clock;
using Bytes = std::vector<std::uint8_t>;

constexpr std::uint32_t loopback = INADDR_LOOPBACK;

milliseconds Lasts(const std::function<void()>& operation) {
  const Clock::time_point start = Clock::now();
  operation();
  return std::chrono::duration_cast<milliseconds>(Clock::now() - start);
}

milliseconds ProcessorTime() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return milliseconds((usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1000 +
                      (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1000);
}

// A socket at a free port of the loopback.
class LoopbackPeer {
 public:
  LoopbackPeer() {
    sockaddr_in local{};
    local.sin_family = AF_INET;
    local.sin_addr.s_addr = htonl(loopback);
    socklen_t size = sizeof local;
    EXPECT_EQ(bind(handle_.Get(), reinterpret_cast<sockaddr*>(&local), size), 0);
    EXPECT_EQ(getsockname(handle_.Get(), reinterpret_cast<sockaddr*>(&local), &size), 0);
    port_ = ntohs(local.sin_port);
  }
  std::uint16_t Port() const { return port_; }

  // Waits for a datagram and sends these to whoever sent it.
  void AnswerOnce(const std::vector<Bytes>& answers) {
    sockaddr_in from{};
    socklen_t size = sizeof from;
    std::array<std::uint8_t, 100> request{};
    ASSERT_EQ(recvfrom(handle_.Get(), request.data(), request.size(), 0, reinterpret_cast<sockaddr*>(&from), &size),
              8);
    for (const Bytes& answer : answers) {
      sendto(handle_.Get(), answer.data(), answer.size(), 0, reinterpret_cast<sockaddr*>(&from), size);
    }
  }

 private:
  FileHandle handle_{socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0)};
  std::uint16_t port_ = 0;
};

TEST(PosixSocketsTest, ReceiveTellsDatagramsSilenceAndWhatIsTooLong) {
  PosixSockets sockets;
  const std::unique_ptr<DatagramSocket> socket = sockets.Open();
  ASSERT_NE(socket, nullptr);
  LoopbackPeer peer;
  const Bytes request(8, 7);
  ASSERT_TRUE(socket->Send(request, loopback, peer.Port()));
  peer.AnswerOnce({Bytes(10, 1), Bytes(11, 2), {}, Bytes(3, 3)});
  Bytes into(10);
  Received received = socket->Receive(into, 1000);
  EXPECT_EQ(received.status, ReceiveStatus::datagram);
  EXPECT_EQ(received.size, 10U);
  EXPECT_EQ(received.sender, loopback);
  EXPECT_EQ(received.senderPort, peer.Port());
  EXPECT_EQ(socket->Receive(into, 1000).status, ReceiveStatus::error);
  received = socket->Receive(into, 1000);
  EXPECT_EQ(received.status, ReceiveStatus::datagram);
  EXPECT_EQ(received.size, 0U);
  EXPECT_EQ(socket->Receive(into, 1000).size, 3U);
  EXPECT_THAT(into, ElementsAre(3, 3, 3, 2, 2, 2, 2, 2, 2, 2));  // the rest stays
  EXPECT_EQ(socket->Receive(into, 0).status, ReceiveStatus::timeOut);
  EXPECT_GE(Lasts([&] { EXPECT_EQ(socket->Receive(into, 30).status, ReceiveStatus::timeOut); }), milliseconds(30));
  EXPECT_FALSE(socket->Send(request, broadcastAddress, 9)) << "nobody allowed a broadcast";
}

TEST(PosixSocketsTest, CheckSleepsForItsSecondsAndProbeEndsAtOnce) {
  PosixSockets sockets;
  PosixSystem system;
  LoopbackPeer peer;
  const Bytes answer = {'N', 'E', 'T', 'S', 0x20, 0, 0, 0, 0, 0, 0, 0};
  std::thread answering([&] { peer.AnswerOnce({answer}); });
  EXPECT_LT(Lasts([&] { EXPECT_TRUE(ProbeScanner(sockets, system, "127.0.0.1", peer.Port())); }), milliseconds(1000));
  answering.join();

  DistinctRecords added(2);
  for (const char* name : {"127.0.0.1", "127.0.0.2"}) {
    ScannerRecord record;
    record.flags = SCANNER_FLAG_ADDED | SCANNER_FLAG_ANSWERED;
    record.SetName(name);
    added.Put(record);
  }
  answering = std::thread([&] { peer.AnswerOnce({answer}); });
  const milliseconds before = ProcessorTime();
  const milliseconds lasted = Lasts([&] { CheckAddedScanners(sockets, system, added, peer.Port()); });
  answering.join();
  EXPECT_GE(lasted, milliseconds(1990));
  EXPECT_LE(lasted, milliseconds(3200));
  EXPECT_LT(ProcessorTime() - before, milliseconds(300)) << "it waited without sleeping";
  EXPECT_EQ(added.All()[0].flags, 6U);
  EXPECT_EQ(added.All()[1].flags, 2U);
}

// Set by the run inside: a process in the network at the other end.
std::string OtherNetwork() {
  const char* process = std::getenv("SET32_TEST_OTHER_NETWORK");
  return process == nullptr ? "" : process;
}

std::string OwnPath() {
  std::array<char, 4096> self{};
  EXPECT_GT(readlink("/proc/self/exe", self.data(), self.size() - 1), 0);
  return self.data();
}

// A program that was built with this one.
std::string Beside(std::string_view program) {
  return OwnPath().substr(0, OwnPath().rfind('/') + 1) + std::string(program);
}

struct Ran {
  int status = -1;
  std::string output;  // both streams
};

Ran RunProgram(const std::string& command) {
  Ran result;
  std::FILE* run = popen((command + " 2>&1").c_str(), "r");
  if (run == nullptr) return result;
  for (int c = std::fgetc(run); c != EOF; c = std::fgetc(run)) result.output += static_cast<char>(c);
  const int status = pclose(run);
  if (WIFEXITED(status)) result.status = WEXITSTATUS(status);
  return result;
}

// scan-answer in the other network.
class Answerer {
 public:
  explicit Answerer(std::vector<std::string> options) {
    std::array<int, 2> ends{};
    EXPECT_EQ(pipe(ends.data()), 0);
    process_ = fork();
    if (process_ == 0) {
      dup2(ends[1], STDOUT_FILENO);
      std::vector<std::string> words = {"nsenter", "-t", OtherNetwork(), "-n", Beside("scan-answer")};
      words.insert(words.end(), options.begin(), options.end());
      std::vector<char*> pointers;
      pointers.reserve(words.size() + 1);
      for (std::string& word : words) pointers.push_back(word.data());
      pointers.push_back(nullptr);
      execvp(pointers[0], pointers.data());
      _exit(127);
    }
    close(ends[1]);
    output_ = FileHandle(ends[0]);
    std::array<char, 9> line{};
    EXPECT_EQ(read(output_.Get(), line.data(), line.size()), 9);
    EXPECT_EQ(std::string_view(line.data(), 9), "listening");
  }
  ~Answerer() {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }
  Answerer(const Answerer&) = delete;
  Answerer& operator=(const Answerer&) = delete;

 private:
  pid_t process_ = -1;
  FileHandle output_;  // open as long as the program writes to it
};

class NetworkNamespaces : public testing::Test {
 protected:
  static bool IsInside() { return !OtherNetwork().empty(); }

  // Runs the current test once more with a network of its own and another beside it.
  static void RunInside() {
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    const std::string name = std::string(test.test_suite_name()) + '.' + test.name();
    const auto [status, output] = RunProgram("unshare -Urnu sh '" SET32_TEST_DATA "/two_networks.sh' '" + OwnPath() +
                                             "' --gtest_filter=" + name);
    const bool started = output.find("[==========]") != output.npos;
    if (status != 0 && !started) GTEST_SKIP() << "no network namespaces here: " << output;
    EXPECT_EQ(status, 0) << output;
    EXPECT_NE(output.find("[  PASSED  ] 1 test."), output.npos) << output;
  }

  // The console host plays a script on the real network, in a folder that stays until the test ends.
  void Play(const char* script) {
    std::string command = Beside("scan-host");
    command.append(" --network real --dir ").append(folder_.Path("dir"));
    command.append(" '" SET32_TEST_DATA "/").append(script).append("'");
    const auto [status, output] = RunProgram(command);
    EXPECT_EQ(status, 0) << output;
  }

 private:
  ScratchFolder folder_;
};

TEST_F(NetworkNamespaces, TypedScannerIsHiddenWhileSilentAndShownAgain) {
  if (!IsInside()) return RunInside();
  // No search finds it: it answers with the kind of a request.
  const auto whileAnswering = [this](const char* script) {
    const Answerer shy({"--address", "10.77.0.3", "--bytes", "4e4554531000000000000000"});
    Play(script);
  };
  whileAnswering("real_typed.scn");
  Play("real_silent.scn");
  whileAnswering("real_again.scn");
}

TEST_F(NetworkNamespaces, ConsoleHostFindsChoosesAndRemembersTheScanner) {
  if (!IsInside()) return RunInside();
  const Answerer scanner({"--address", "10.77.0.2"});
  Play("real_network.scn");
}

}  // namespace
}  // namespace set32
