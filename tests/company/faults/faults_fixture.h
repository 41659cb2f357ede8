// What the tests of faults and kills share: a small company, work on it, and what must hold after each fault.
#pragma once

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <new>
#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "company/embedded/sqlite.h"
#include "failing_new.h"
#include "faulty_vfs.h"
#include "tests/company/company_fixture.h"

namespace goods {

inline int Campaign() {
  const char* times = std::getenv("GOODS_CAMPAIGN");
  return times == nullptr ? 1 : std::max(1, std::atoi(times));
}

inline DemoOptions Demo(std::int64_t goods) {
  DemoOptions options;
  options.goods = goods;
  options.stores = 2;
  options.movements = 120;
  options.replace = true;
  return options;
}

// What a company says of itself; throws when it cannot be opened.
inline std::string Figures(const std::string& path) {
  const std::unique_ptr<IConnection> connection = OpenCompany(path)->OpenConnection();
  std::string figures;
  for (const char* statement :
       {"Select Kala, Mogodi, Jam_Kol from GoodStock", "Select Code, Name from GoodInf",
        "Select Kala, Radif, Tedad, Miangin from Kardex"}) {
    for (const auto& row : Ask(*connection, statement)) {
      for (const std::string& cell : row) figures += cell + ";";
    }
    figures += "\n";
  }
  return figures;
}

class FaultsTest : public ::testing::Test {
 protected:
  FaultsTest() {
    MakeDemoCompany(sound_.Path(), Demo(10));
    Restore();
  }

  void Restore() {
    for (const char* beside : {"-journal", "-wal", "-shm"}) std::filesystem::remove(file_.Path() + beside);
    std::filesystem::copy_file(sound_.Path(), file_.Path(),
                               std::filesystem::copy_options::overwrite_existing);
  }
  void MakeOlder() {
    MakeDemoCompany(sound_.Path(), Demo(10));
    Database(sound_.Path(), SQLITE_OPEN_READWRITE).Run(kMakeOlder);
    Restore();
  }

  void Open() { Figures(file_.Path()); }
  void Refresh() {
    const std::unique_ptr<IConnection> connection = OpenCompany(file_.Path())->OpenConnection();
    for (const char* statement :
         {"Exec UpdateMogodiKala 0", "Exec DefineRemainInStore", "Exec RialiStock_SP"}) {
      connection->Execute(statement);
    }
  }
  void Replace() { MakeDemoCompany(file_.Path(), Demo(12)); }

  // Runs body; true when it got through. What it throws must be for a user.
  static bool GotThrough(const std::function<void()>& body) {
    try {
      body();
      return true;
    } catch (const std::bad_alloc&) {
    } catch (const std::exception& error) {
      const std::string_view text = error.what();
      EXPECT_NE(text.find_first_of("\xd8\xd9\xda\xdb"), text.npos) << text;
    }
    return false;
  }

  // The company says what it said before the work or what it says after it.
  void IsWhole(const std::string& before, const std::string& after, bool through, int at) {
    const std::string now = Figures(file_.Path());
    EXPECT_TRUE(now == before || now == after) << "fault " << at;
    if (through) {
      EXPECT_EQ(now, after) << "fault " << at;
    }
    // A journal that was not worth anything may stay until the next work; unfinished files do not.
    EXPECT_LE(NamesBeside(file_.Path()), std::filesystem::exists(file_.Path() + "-journal") ? 1U : 0U)
        << "fault " << at;
  }

  // Fails call 1, 1 + stride, ... of the work; returns how many faults were tried.
  template <typename Fault>
  int InTurn(const std::function<void()>& work, int most) {
    Restore();
    const std::string before = Figures(file_.Path());
    int calls = 0;
    {
      const Fault counting(0);
      work();
      calls = Fault::Calls();
    }
    const std::string after = Figures(file_.Path());
    const int stride = std::max(1, calls / (most * Campaign()));
    int tried = 0;
    for (int at = 1; at <= calls; at += stride) {
      Restore();
      bool through = false;
      {
        const Fault fault(at);
        through = GotThrough(work);
      }
      IsWhole(before, after, through, at);
      ++tried;
    }
    Restore();
    work();
    EXPECT_EQ(Figures(file_.Path()), after);
    EXPECT_EQ(NamesBeside(file_.Path()), 0U);
    RecordProperty("faults", tried);
    return tried;
  }

  TestFile sound_{"sound.company"};
  TestFile file_{"faults.company"};
};

class LastingFault : public FaultyDisk {
 public:
  explicit LastingFault(int failAt) : FaultyDisk(failAt, true) {}
};

class KillsTest : public FaultsTest {
 protected:
  // Kills the work at random moments of the time that it takes. Returns how often it was killed before its
  // end.
  int AtRandom(const std::function<void()>& work, int times) {
    const std::string before = Figures(file_.Path());
    const auto start = std::chrono::steady_clock::now();
    work();
    const auto takes =
        std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - start);
    const std::string after = Figures(file_.Path());
    std::mt19937 random(7);
    std::uniform_int_distribution<std::int64_t> moment(0, takes.count());
    int killed = 0;
    for (int i = 0; i < times * Campaign(); ++i) {
      Restore();
      const pid_t child = fork();
      if (child == 0) {
        work();
        _exit(0);
      }
      usleep(static_cast<useconds_t>(moment(random)));
      kill(child, SIGKILL);
      int status = 0;
      waitpid(child, &status, 0);
      killed += WIFSIGNALED(status) ? 1 : 0;
      const std::string now = Figures(file_.Path());
      EXPECT_TRUE(now == before || now == after) << i;
    }
    // What killed programs left is gone after the next start, which may find its work done.
    GotThrough(work);
    EXPECT_EQ(Figures(file_.Path()), after);
    EXPECT_EQ(NamesBeside(file_.Path()), 0U);
    RecordProperty("killed", killed);
    return killed;
  }
};

}  // namespace goods
