#include "foundation/Error.h"
#include "foundation/StringObject.h"
#include "foundation/posix/FileValueStore.h"
#include "tests/foundation/TemporaryFolder.h"
#include "tests/foundation/TextOf.h"
#include "tests/foundation/Variable.h"

#include <gmock/gmock.h>

#include <csignal>
#include <cstring>
#include <limits>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace orlo::posix {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<std::string> namesOf(const P<IConstEnum>& walk) {
  std::vector<std::string> names;
  while (walk->hasNext()) names.push_back(textOf(asString(walk->nextConst())));
  return names;
}

template <class Action>
std::string problemOf(Action action) {
  try {
    action();
  } catch (const CException& error) {
    return messageOf(error);
  }
  return "none";
}

class FileValueStore : public testing::Test {
protected:
  /// Another one on the same file, as another process would have it.
  CFileValueStore other() const { return CFileValueStore(fromUTF8(file.string())); }

  CTemporaryFolder folder;
  std::filesystem::path file = folder / "settings.conf";
  CFileValueStore store{fromUTF8(file.string())};
};

TEST_F(FileValueStore, GivesDefaultsAndWritesNothingIfThereIsNoFile) {
  EXPECT_EQ(store.getInt("x", 7), 7);
  EXPECT_EQ(store.getInt64("x", 7), 7);
  EXPECT_TRUE(store.getBool("x", true));
  EXPECT_EQ(store.getDouble("x", 7.5), 7.5);
  EXPECT_EQ(textOf(store.getString("x", "seven")), "seven");
  EXPECT_TRUE(store.getString("x", nullptr).isNull());
  EXPECT_FALSE(store.getBinary("x"));
  EXPECT_FALSE(store.hasValue("x"));
  EXPECT_FALSE(store.hasSubStore("x"));
  EXPECT_THAT(namesOf(store.getValueNames()), IsEmpty());
  EXPECT_THAT(namesOf(store.getSubStoreNames()), IsEmpty());
  EXPECT_THROW(store.getSubStore("x"), CNoSuchObjectError);
  EXPECT_THROW(store.removeValue("x"), CNoSuchObjectError);
  EXPECT_THROW(store.removeSubStore("x"), CNoSuchObjectError);
  store.flush();
  store.reload();
  EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(FileValueStore, ReadsWhatAnotherHasWritten) {
  const unsigned char bytes[] = {0, 255, 10};
  store.setInt("int", std::numeric_limits<std::int32_t>::min());
  store.setInt64("int64", std::numeric_limits<std::int64_t>::max());
  store.setBool("bool", true);
  store.setDouble("double", 0.1);
  store.setString("string", u8"\u00E9");
  store.setBinary("binary", bytes, sizeof(bytes));
  const CFileValueStore reader = other();
  EXPECT_EQ(reader.getInt("int", 0), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(reader.getInt64("int64", 0), std::numeric_limits<std::int64_t>::max());
  EXPECT_TRUE(reader.getBool("bool", false));
  EXPECT_EQ(reader.getDouble("double", 0), 0.1);
  EXPECT_TRUE(reader.getString("string", nullptr).equals(u"\u00E9"));
  const P<IMemoryBlock> block = reader.getBinary("binary");
  ASSERT_TRUE(block);
  ASSERT_EQ(block->getSize(), sizeof(bytes));
  EXPECT_EQ(std::memcmp(block->getData(), bytes, sizeof(bytes)), 0);
  EXPECT_THAT(namesOf(reader.getValueNames()), ElementsAre("binary", "bool", "double", "int", "int64", "string"));
  EXPECT_EQ(contentOf(file),
            "int = -2147483648\n"
            "int64 = 9223372036854775807\n"
            "bool = true\n"
            "double = 0.1\n"
            "string = \"\xC3\xA9\"\n"
            "binary = { hex = \"00FF0A\" }\n");
}

TEST_F(FileValueStore, TakesAValueOfAnotherTypeForMissing) {
  store.setInt("int", 5);
  store.setInt64("int64", 5);
  store.setString("string", "5");
  store.setBinary("binary", "12345", 5);
  for (const char* name : {"int64", "string", "binary"}) EXPECT_EQ(store.getInt(name, 9), 9) << name;
  for (const char* name : {"int", "string", "binary"}) EXPECT_EQ(store.getInt64(name, 9), 9) << name;
  for (const char* name : {"int64", "string", "binary"}) EXPECT_TRUE(store.getBool(name, true)) << name;
  for (const char* name : {"int", "int64", "string", "binary"}) EXPECT_EQ(store.getDouble(name, 9), 9) << name;
  for (const char* name : {"int", "int64", "binary"}) EXPECT_EQ(textOf(store.getString(name, "none")), "none") << name;
  for (const char* name : {"int", "int64", "string"}) EXPECT_FALSE(store.getBinary(name)) << name;
}

TEST_F(FileValueStore, StoresTruthValuesAsNumbersAndDoublesAsBytes) {
  store.setBool("truth", true);
  EXPECT_EQ(store.getInt("truth", 9), 1);
  store.setInt("number", -2);
  EXPECT_TRUE(store.getBool("number", false));
  store.setInt("number", 0);
  EXPECT_FALSE(store.getBool("number", true));
  store.setDouble("double", 1.5);
  const P<IMemoryBlock> block = store.getBinary("double");
  ASSERT_EQ(block->getSize(), 8u);
  store.setBinary("bytes", block->getData(), 8);
  EXPECT_EQ(store.getDouble("bytes", 0), 1.5);
}

TEST_F(FileValueStore, KeepsEveryText) {
  std::u32string all;
  for (char32_t c = 0; c < 0x110000; c += c < 0x3000 ? 1 : 251) all += c;
  all += U"\xD83D\xDE00\U0001F600\x0800\n\r\n\t\"\\'#]}";
  const String text = P<IString>(makeObject<CUTF32String>(all.data(), CString::Storage::copy,
                                                          static_cast<int>(all.size() * sizeof(char32_t)), true));
  store.setString("all", text);
  EXPECT_TRUE(other().getString("all", nullptr).equals(toWide(text)));
  store.setString("empty", "");
  EXPECT_FALSE(other().getString("empty", nullptr).isNull());
  store.setString(text, "name");
  EXPECT_EQ(textOf(other().getString(text, nullptr)), "name");
}

TEST_F(FileValueStore, LeavesOutBytesThatAreNoCharacter) {
  store.setString("x", fromUTF8("a\xFF\xC3z\xF0\x9F\x98\x80"));
  EXPECT_TRUE(other().getString("x", nullptr).equals(u"az\U0001F600"));
}

TEST_F(FileValueStore, HasStoresWithinStores) {
  const P<IValueStore> position = store.openSubStore("Window\\Position");
  position->setInt("x", 1);
  store.openSubStore("Window")->setInt("open", 2);
  EXPECT_TRUE(store.hasSubStore("window\\POSITION"));
  EXPECT_TRUE(store.hasSubStore("\\window\\\\position\\"));
  EXPECT_FALSE(store.hasSubStore("Position"));
  EXPECT_EQ(store.getSubStore("Window")->getSubStore("Position")->getInt("X", 0), 1);
  EXPECT_THAT(namesOf(store.getSubStoreNames()), ElementsAre("Window"));
  EXPECT_THAT(namesOf(store.getSubStore("Window")->getSubStoreNames()), ElementsAre("Position"));
  EXPECT_THROW(store.getSubStore("Door"), CNoSuchObjectError);
  EXPECT_EQ(contentOf(file), "[Window.Position]\nx = 1\n\n[Window]\nopen = 2\n");
}

TEST_F(FileValueStore, OpensAStoreWithinTheFile) {
  const String name = fromUTF8(file.string());
  EXPECT_THROW(CFileValueStore(name, "a\\b", false), CNoSuchObjectError);
  EXPECT_FALSE(std::filesystem::exists(file));
  CFileValueStore(name, "a\\b", true).setInt("x", 1);
  EXPECT_EQ(CFileValueStore(name, "a\\b", false).getInt("x", 0), 1);
  EXPECT_EQ(contentOf(file), "[a.b]\nx = 1\n");
}

TEST_F(FileValueStore, RemovesValuesAndStores) {
  store.openSubStore("a\\b")->setInt("x", 1);
  store.setInt("y", 2);
  store.removeValue("Y");
  EXPECT_FALSE(store.hasValue("y"));
  EXPECT_THROW(store.removeValue("y"), CNoSuchObjectError);
  EXPECT_THROW(store.removeSubStore("c"), CNoSuchObjectError);
  EXPECT_THROW(store.removeSubStore(""), CInvalidArgError);
  EXPECT_THROW(store.removeSubStore("\\"), CInvalidArgError);
  store.removeSubStore("A\\B");
  EXPECT_FALSE(store.hasSubStore("a\\b"));
  EXPECT_TRUE(store.hasSubStore("a"));
}

TEST_F(FileValueStore, MakesARemovedStoreAgainWhenItIsWritten) {
  const P<IValueStore> sub = store.openSubStore("a");
  sub->setInt("x", 1);
  store.removeSubStore("a");
  EXPECT_EQ(sub->getInt("x", 0), 0);
  sub->setInt("x", 2);
  EXPECT_EQ(store.getSubStore("a")->getInt("x", 0), 2);
}

TEST_F(FileValueStore, SeesWhatIsWrittenByHand) {
  store.setInt("x", 1);
  EXPECT_EQ(store.getInt("x", 0), 1);
  writeFile(file, "x = 12345 # by hand\n");
  EXPECT_EQ(store.getInt("x", 0), 12345);
  store.setInt("y", 2);
  EXPECT_EQ(contentOf(file), "x = 12345 # by hand\ny = 2\n");
  std::filesystem::remove(file);
  EXPECT_EQ(store.getInt("x", 0), 0);
}

TEST_F(FileValueStore, NeverWritesOverAFileThatItCannotRead) {
  const std::string damaged = "x = 1\n[a\ny = 2\n";
  writeFile(file, damaged);
  const std::string expected = "The settings file '" + file.string() + "' is damaged in line 2: ']' is missing.";
  EXPECT_EQ(problemOf([&] { store.getInt("x", 0); }), expected);
  EXPECT_EQ(problemOf([&] { store.setInt("x", 5); }), expected);
  EXPECT_EQ(problemOf([&] { store.openSubStore("b"); }), expected);
  EXPECT_EQ(problemOf([&] { store.removeValue("x"); }), expected);
  EXPECT_EQ(contentOf(file), damaged);
  EXPECT_THROW(store.getInt("x", 0), CParseError);
  writeFile(file, "x = 1\n");
  EXPECT_EQ(store.getInt("x", 0), 1);
}

TEST_F(FileValueStore, ReadsNoFileThatIsTooLarge) {
  writeFile(file, std::string(CValueDocument::kMostBytes + 1, '#'));
  EXPECT_THAT(problemOf([&] { store.getInt("x", 0); }), HasSubstr("is larger than 4194304 bytes."));
  EXPECT_THAT(problemOf([&] { store.setInt("x", 0); }), HasSubstr("is larger than 4194304 bytes."));
  EXPECT_EQ(std::filesystem::file_size(file), CValueDocument::kMostBytes + 1);
}

TEST_F(FileValueStore, WritesNoFileThatItCouldNotRead) {
  store.setInt("x", 1);
  const std::vector<char> large(CValueDocument::kMostBytes / 2);
  EXPECT_THAT(problemOf([&] { store.setBinary("y", large.data(), large.size()); }),
              HasSubstr("cannot take this: it is larger than 4194304 bytes."));
  EXPECT_THAT(problemOf([&] {
                store.openSubStore(
                    String("a\\a\\a\\a\\a\\a\\a\\a\\a\\a\\a\\a\\a\\a\\a\\a\\a\\"
                           "a\\a\\a\\a\\a\\a\\a\\a\\a\\a\\a\\a\\a\\a\\a\\a"));
              }),
              HasSubstr("cannot take this: stores are nested more than 32 deep."));
  EXPECT_EQ(contentOf(file), "x = 1\n");
  EXPECT_FALSE(store.hasValue("y"));
}

TEST_F(FileValueStore, ReadsNothingThatIsNoFile) {
  std::filesystem::create_directory(file);
  EXPECT_THAT(problemOf([&] { store.getInt("x", 0); }), HasSubstr("Error reading the settings file"));
  EXPECT_THAT(problemOf([&] { store.setInt("x", 0); }), HasSubstr("Error writing the settings file"));
  std::filesystem::remove(file);
  ASSERT_EQ(mkfifo(file.c_str(), 0600), 0);
  EXPECT_THAT(problemOf([&] { store.getInt("x", 0); }), HasSubstr("Error reading the settings file"));
  EXPECT_THAT(problemOf([&] { store.setInt("x", 0); }), HasSubstr("settings file"));
}

TEST_F(FileValueStore, MakesTheFoldersOfItsFile) {
  const auto deep = folder / "a b" / "\xC3\xA4\xF0\x9F\x98\x80" / "settings.conf";
  CFileValueStore(fromUTF8(deep.string())).setInt("x", 1);
  EXPECT_EQ(contentOf(deep), "x = 1\n");
  struct stat state {};
  ASSERT_EQ(stat(deep.parent_path().c_str(), &state), 0);
  EXPECT_EQ(state.st_mode & 0777, 0700u);
}

TEST_F(FileValueStore, KeepsTheModeOfItsFile) {
  store.setInt("x", 1);
  for (const mode_t mode : {0600u, 0664u, 0640u}) {
    ASSERT_EQ(chmod(file.c_str(), mode), 0);
    store.setInt("x", static_cast<int>(mode));
    struct stat state {};
    ASSERT_EQ(stat(file.c_str(), &state), 0);
    EXPECT_EQ(state.st_mode & 0777, mode);
  }
}

TEST_F(FileValueStore, FollowsLinksAndLeavesThemAlone) {
  const auto target = folder / "elsewhere" / "real.conf";
  std::filesystem::create_directory(target.parent_path());
  writeFile(target, "x = 1\n");
  std::filesystem::create_symlink("elsewhere/real.conf", file);
  store.setInt("x", 2);
  EXPECT_TRUE(std::filesystem::is_symlink(file));
  EXPECT_EQ(contentOf(target), "x = 2\n");
  std::filesystem::remove(target);
  store.setInt("x", 3);
  EXPECT_TRUE(std::filesystem::is_symlink(file));
  EXPECT_EQ(contentOf(target), "x = 3\n");
}

TEST_F(FileValueStore, LeavesNothingBesideItsFile) {
  writeFile(folder / ".settings.conf.new", "left by a process that died");
  store.setInt("x", 1);
  int files = 0;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder.get())) ++files;
  EXPECT_EQ(files, 1);
}

TEST_F(FileValueStore, WritesNothingIfNothingChanges) {
  store.setInt("x", 1);
  struct stat before {};
  struct stat after {};
  ASSERT_EQ(stat(file.c_str(), &before), 0);
  store.setInt("x", 1);
  ASSERT_EQ(stat(file.c_str(), &after), 0);
  EXPECT_EQ(before.st_ino, after.st_ino);
  // The lock is free again.
  other().setInt("x", 2);
  EXPECT_EQ(store.getInt("x", 0), 2);
}

TEST_F(FileValueStore, ReportsAFileThatIsNotItsOwn) {
  if (geteuid() == 0) GTEST_SKIP() << "root may read and write everything";
  writeFile(file, "x = 1\n");
  ASSERT_EQ(chmod(file.c_str(), 0400), 0);
  EXPECT_EQ(store.getInt("x", 0), 1);
  EXPECT_THAT(problemOf([&] { store.setInt("x", 2); }), HasSubstr("Error writing the settings file"));
  ASSERT_EQ(chmod(file.c_str(), 0000), 0);
  EXPECT_THAT(problemOf([&] { other().getInt("x", 0); }), HasSubstr("Error reading the settings file"));
  ASSERT_EQ(chmod(file.c_str(), 0600), 0);
  EXPECT_EQ(contentOf(file), "x = 1\n");
}

TEST_F(FileValueStore, LosesNothingWhenThereIsNoMoreRoom) {
  store.setString("x", "kept");
  const std::string before = contentOf(file);
  signal(SIGXFSZ, SIG_IGN);
  rlimit limit{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
  const rlimit small{4096, limit.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  const std::string problem = problemOf([&] { store.setString("y", fromUTF8(std::string(100000, 'y'))); });
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  EXPECT_THAT(problem, HasSubstr("Error writing the settings file"));
  EXPECT_EQ(contentOf(file), before);
  EXPECT_FALSE(store.hasValue("y"));
  EXPECT_FALSE(std::filesystem::exists(folder / ".settings.conf.new"));
}

TEST_F(FileValueStore, IsUsedBySeveralThreads) {
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([this, i] {
      const P<IValueStore> sub = store.openSubStore(fromUTF8(std::to_string(i)));
      for (int step = 0; step < 10; ++step) {
        sub->setInt(fromUTF8(std::to_string(step)), step);
        EXPECT_EQ(sub->getInt(fromUTF8(std::to_string(step)), -1), step);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  const std::vector<std::string> names = namesOf(store.getSubStoreNames());
  EXPECT_THAT(names, ElementsAre("0", "1", "2", "3"));
  for (const std::string& name : names)
    EXPECT_EQ(namesOf(store.getSubStore(fromUTF8(name))->getValueNames()).size(), 10u);
}

TEST(UserValueStore, LiesInTheUsersConfigurationFolder) {
  const CTemporaryFolder folder;
  {
    const CVariable settings("XDG_CONFIG_HOME", folder.get().string());
    openUserValueStore("mfilter test")->setInt("x", 1);
  }
  EXPECT_EQ(contentOf(folder / "mfilter test" / "settings.conf"), "x = 1\n");
  const CVariable settings("XDG_CONFIG_HOME", "relative");
  const CVariable home("HOME", folder.get().string());
  openUserValueStore("two")->setInt("x", 2);
  EXPECT_EQ(contentOf(folder / ".config" / "two" / "settings.conf"), "x = 2\n");
}

TEST(UserValueStore, RefusesNamesThatLeadElsewhere) {
  for (const char* name : {"", ".", "..", "a/b", "../a"}) EXPECT_THROW(openUserValueStore(name), CInvalidArgError);
}

}  // namespace
}  // namespace orlo::posix
