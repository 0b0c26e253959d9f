// The options from outside: each key's default, its meaning, and where texts are cut.
#include "profile/options.h"

#include <gtest/gtest.h>

#include <limits>
#include <type_traits>

#include "apps/stage/model/headless_system.h"
#include "boundary/hardware_options.h"
#include "platform/profile_engine.h"
#include "profile/profile_keys.h"
#include "set32/host_records.h"
#include "tests/support/profile_peer.h"
#include "tests/support/scratch_folder.h"

namespace set32 {
namespace {

class Options : public testing::Test {
 protected:
  template <typename T>
  T From(const std::string& text) {
    return T(engine_, system_, folder_.Write("o.ini", text));
  }
  AdjustmentDefaults Adjustments(const std::string& text, std::uint32_t mode) {
    CProfileFile profile(engine_);
    profile.SetFileName(folder_.Write("o.ini", text).c_str());
    return ReadAdjustmentDefaults(profile, mode);
  }

  static std::string Named(const ModuleSettings& module) {
    const FileNames names = module.Names();
    return names.runtimeOptions + ' ' + names.profile + ' ' + names.scannerList;
  }

  ScratchFolder folder_;
  SimulatedClock clock_;
  HeadlessSystem system_{clock_, 0x0404};
  ProfileEngine engine_{SystemFiles()};
};

TEST_F(Options, HaveTheirDefaultsWithoutAFile) {
  const std::string none = folder_.Path("none");
  const ModuleSettings module(engine_, system_, none);
  EXPECT_EQ(Named(module), "QUIRNHTp.INI QUIRNPrf.ini QUIRNSLT.dat");
  EXPECT_EQ(module.DriverType(), 3);

  const HardwareOptions hardware(engine_, system_, none);
  EXPECT_TRUE(hardware.HighBitControlShown());
  EXPECT_FALSE(hardware.DialogPlace());

  const RuntimeOptions options(engine_, system_, none);
  EXPECT_FALSE(options.IsInlineFace());
  EXPECT_EQ(options.ProductName("own"), "own");
  EXPECT_TRUE(options.HighBitRestricted());
  EXPECT_FALSE(options.PaperSourceControlsShown());
  EXPECT_EQ(options.PaperSource(), 0U);
  EXPECT_TRUE(options.HasCrop());
  EXPECT_FALSE(options.FeederAutoCrop());
  EXPECT_EQ(OptionFile(engine_, system_, none).Read(option_key::defaultDevice), "NoDefault");
}

// The samples that a host's author starts from name every key with its default.
TEST_F(Options, StandInTheSamplesWithTheirDefaults) {
  const auto holdsOne = [&](const char* file, const auto& key) {
    auto missing = key;
    if constexpr (std::is_same_v<decltype(missing), IntegerKey>) {
      missing.fallback = -77;
    } else {
      missing.fallback = "missing";
    }
    const OptionFile sample(engine_, system_, SET32_SAMPLES "/options/" + std::string(file));
    EXPECT_EQ(sample.Read(missing), key.fallback) << key.name;
  };
  const auto holds = [&](const char* file, const auto&... keys) { (..., holdsOne(file, keys)); };
  holds("QUIRNMFP.ini", module_key::runtimeOptionsName, module_key::profileName, module_key::scannerListName,
        module_key::driverType);
  for (const TextKey& device : module_key::deviceIds) holds("QUIRNMFP.ini", device);
  holds("QUIRNHW.ini", hardware_key::highBitControl, hardware_key::dialogPlace);
  holds("QUIRNHTp.INI", option_key::uiFace, option_key::oem, option_key::productName, option_key::application,
        option_key::highBitApplications, option_key::lowLevelDriver, option_key::paperSourceControls,
        option_key::paperSource, option_key::hasCrop, option_key::feederAutoCrop, option_key::defaultDevice);
  CProfileFile profile(engine_);
  profile.SetFileName(SET32_SAMPLES "/options/QUIRNPrf.ini");
  for (const std::uint32_t one : {mode::colour, mode::gray, mode::blackWhite}) {
    const profile_key::AdjustmentKeys keys = profile_key::AdjustmentKeysOf(one);
    for (const char* name : {keys.brightness, keys.contrast}) {
      if (name != nullptr) {
        EXPECT_EQ(profile.GetInteger(profile_key::defaultSettings, name, 77, 10), 0U) << name;
      }
    }
    EXPECT_EQ(profile.GetDouble(profile_key::defaultSettings, keys.gamma, 77), 1) << keys.gamma;
  }
  EXPECT_EQ(profile.GetDouble(profile_key::defaultSettings, profile_key::jpegQuality, 77), 9);
}

TEST_F(Options, ChooseTheFaceAndTheName) {
  EXPECT_TRUE(From<RuntimeOptions>("[OPTION]\nUIFace=0\n").IsInlineFace());
  EXPECT_FALSE(From<RuntimeOptions>("[Option]\nUIFace=2\n").IsInlineFace());
  EXPECT_EQ(From<RuntimeOptions>("[Option]\nOEM=0\n[Identity]\nProductName=X\n").ProductName("own"), "own");
  EXPECT_EQ(From<RuntimeOptions>("[Option]\nOEM=2\n[Identity]\nProductName=X\n").ProductName("own"), "X");
  EXPECT_EQ(From<RuntimeOptions>("[Option]\nOEM=1\n").ProductName("own"), "Scan Desk");
  EXPECT_EQ(From<ModuleSettings>("[RunTime]\nDriverType=257\n").DriverType(), 1);
}

TEST_F(Options, CutTextsBetweenCharacters) {
  const auto cut = [&](std::size_t count, const char* end) {
    return From<ModuleSettings>("[INIFiles]\nQUIRNMFP_PROFILE=" + std::string(count, 'n') + end).Names().profile;
  };
  EXPECT_EQ(cut(60, "\n"), std::string(49, 'n'));
  EXPECT_EQ(cut(48, "\u7DE8x\n"), std::string(48, 'n')) << "a character of three bytes that has no room";
  EXPECT_EQ(cut(46, "\u7DE8x\n"), std::string(46, 'n') + "\u7DE8");
  EXPECT_EQ(From<OptionFile>("[Device]\nDefault=" + std::string(300, 'd') + "\n").Read(option_key::defaultDevice),
            std::string(255, 'd'));
}

// Whoever writes the module settings names files of one folder, and no other thing.
TEST_F(Options, NameFilesOfTheFolderAndEachItsOwn) {
  const auto profileNamed = [&](const std::string& name) {
    return From<ModuleSettings>("[INIFiles]\nQUIRNMFP_PROFILE='" + name + "'\n").Names().profile;
  };
  for (const char* name : {"",
                           ".",
                           "..",
                           "../a.ini",
                           "/a",
                           "a/b",
                           "..\\a",
                           "a\\b",
                           "C:a",
                           "a:stream",
                           "nul",
                           "Con.ini",
                           "AUX .x",
                           "com1",
                           "LPT9.ini",
                           "conin$",
                           "a ",
                           "a.",
                           "a.LOCK",
                           ".tmp",
                           "p.Tmp",
                           "quirnht.INI.tmp",
                           "QUIRNSLT.DAT",
                           "quirnhtp.ini",
                           "quirnmfp.ini",
                           "QUIRNHW.INI"}) {
    EXPECT_EQ(profileNamed(name), "QUIRNPrf.ini") << name;
  }
  for (const char* name :
       {"own.ini", "...a", "com", "com10.ini", "nullify", "lock", "a.tmp.ini", "quirnprf.INI", "\u7DE8.ini"}) {
    EXPECT_EQ(profileNamed(name), name);
  }
  const struct {
    const char *options, *profile, *list, *names;
  } cases[] = {
      {"a", "A", "a", "a QUIRNPrf.ini QUIRNSLT.dat"},
      {"a", "b", "B", "a b QUIRNSLT.dat"},
      {"QUIRNPrf.ini", "QUIRNSLT.dat", "QUIRNHTp.INI", "QUIRNHTp.INI QUIRNPrf.ini QUIRNSLT.dat"},
      {"..", "a", "b", "QUIRNHTp.INI a b"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Named(From<ModuleSettings>(std::string("[INIFiles]\nQUIRNHTEMP_INI=") + c.options +
                                         "\nQUIRNMFP_PROFILE=" + c.profile + "\nQUIRNSCANNERLIST=" + c.list + '\n')),
              c.names);
  }
}

TEST_F(Options, RestrictHighBitsToListedApplications) {
  const struct {
    const char *list, *application;
    bool listed;
  } cases[] = {{"a,b", "b", true},   {"a,b", "a", true},   {"a,b", "B", false}, {"a, b", "b", false},
               {"a, b", " b", true}, {",,a", "a", true},   {"a,,", "", false},  {"", "", false},
               {"ab", "a", false},   {"a,b", "a,b", false}};
  for (const auto& c : cases) EXPECT_EQ(ListsApplication(c.list, c.application), c.listed) << c.list;
}

TEST_F(Options, KeepTheDialogsPlace) {
  const auto hardware = From<HardwareOptions>("[Option]\n36BitsColorMode=0\n");
  EXPECT_FALSE(hardware.HighBitControlShown());
  EXPECT_TRUE(hardware.WriteDialogPlace({-5, 20, 300, 400}));
  EXPECT_EQ(folder_.Read("o.ini"), "[Option]\n36BitsColorMode=0\nAdvancePos=-5,20,300,400\n");
  EXPECT_EQ(hardware.DialogPlace(), (Point{-5, 20}));
  EXPECT_EQ(From<HardwareOptions>("[Option]\nAdvancePos=1, +2\n").DialogPlace(), (Point{1, 2}));
  for (const char* const text : {"", "1", "1,", "1;2", "x,2", "1,99999999999", ",1,2"}) {
    EXPECT_FALSE(From<HardwareOptions>("[Option]\nAdvancePos=" + std::string(text) + "\n").DialogPlace()) << text;
  }
}

TEST_F(Options, GiveEachModeItsAdjustments) {
  const std::string text =
      "[Default Settings]\nColorBrightness=-1\nColorContrast=2\nColorGamma=1.1\nGrayBrightness=3\nGrayContrast=4\n"
      "GrayGamma=1.2\nB&WBrightness=5\nB&WContrast=6\nB&WGamma=1.3\nJPEGQualityFactor=7.9\n";
  const struct {
    std::uint32_t mode;
    int brightness, contrast;
    double gamma;
  } cases[] = {{mode::colour, -1, 2, 1.1},  {mode::jpegColour, -1, 2, 1.1}, {mode::gray, 3, 4, 1.2},
               {mode::jpegGray, 3, 4, 1.2}, {mode::blackWhite, 5, 0, 1.3},  {77, 0, 0, 1.0}};
  for (const auto& c : cases) {
    const AdjustmentDefaults values = Adjustments(text, c.mode);
    EXPECT_EQ(values.brightness, c.brightness) << c.mode;
    EXPECT_EQ(values.contrast, c.contrast) << c.mode;
    EXPECT_EQ(values.gamma, c.gamma) << c.mode;
    EXPECT_EQ(values.jpegQuality, 7) << c.mode;
  }
  EXPECT_EQ(Adjustments("", mode::colour).gamma, 1.0);
  EXPECT_EQ(Adjustments("", mode::colour).jpegQuality, 9);
  EXPECT_EQ(Adjustments("[Default Settings]\nJPEGQualityFactor=1e99\n", mode::gray).jpegQuality,
            std::numeric_limits<std::int32_t>::max());
}

}  // namespace
}  // namespace set32
