// Every id of the resources with its name: dialogs, controls, texts, pictures.
#pragma once

#include <string_view>

namespace set32 {

namespace dialog {
inline constexpr int general = 102;  // General page of the sheet face, page of the inline face
inline constexpr int gamma = 103;    // advanced dialog of the inline face
inline constexpr int saveConfig = 104;
inline constexpr int message = 115;
inline constexpr int addScanner = 119;
inline constexpr int searching = 120;
inline constexpr int advanced = 148;  // Advanced page of the sheet face
inline constexpr int sheet = 1;       // the sheet itself, our own container
}  // namespace dialog

// Buttons that every dialog knows.
namespace id {
inline constexpr int ok = 1;
inline constexpr int cancel = 2;
}  // namespace id

// Dialog 102.
namespace id {
inline constexpr int scannerLabel = 1055;
inline constexpr int scannerCombo = 1013;
inline constexpr int refreshButton = 5003;
inline constexpr int sourceLabel = 1054;
inline constexpr int sourceCombo = 1012;
inline constexpr int listGroup = 1034;
inline constexpr int configList = 1009;
inline constexpr int saveButton = 5002;
inline constexpr int deleteButton = 5004;
inline constexpr int scanGroup = 1033;
inline constexpr int modeLabel = 1035;
inline constexpr int modeCombo = 1011;
inline constexpr int colourButton = 1202;
inline constexpr int grayButton = 1203;
inline constexpr int bwButton = 1204;
inline constexpr int colourRadio = 1205;
inline constexpr int grayRadio = 1206;
inline constexpr int bwRadio = 1207;
inline constexpr int resolutionLabel = 1036;
inline constexpr int resolutionCombo = 1210;
inline constexpr int resolutionEdit = 1212;
inline constexpr int sizeLabel = 1037;
inline constexpr int sizeCombo = 1251;
inline constexpr int unitCombo = 1256;
inline constexpr int widthPicture = 1253;
inline constexpr int widthEdit = 1252;
inline constexpr int heightPicture = 1255;
inline constexpr int heightEdit = 1254;
inline constexpr int advancedButton = 3094;
inline constexpr int autoCropCheck = 1006;
inline constexpr int framesLabel = 1094;
inline constexpr int frameTabs = 1095;
inline constexpr int removeFrameButton = 5005;
}  // namespace id

// Dialog 103.
namespace id103 {
inline constexpr int defaultsRadio = 4016;
inline constexpr int customRadio = 4015;
inline constexpr int brightnessEdit = 1221;
inline constexpr int brightnessBar = 1222;
inline constexpr int contrastEdit = 1231;
inline constexpr int contrastBar = 1232;
inline constexpr int gammaAllRadio = 4001;
inline constexpr int gammaBandsRadio = 4002;
inline constexpr int gammaAllEdit = 4004;
inline constexpr int gammaAllBar = 4005;
inline constexpr int gammaRedEdit = 4007;
inline constexpr int gammaRedBar = 4008;
inline constexpr int gammaGreenEdit = 4010;
inline constexpr int gammaGreenBar = 4011;
inline constexpr int gammaBlueEdit = 4013;
inline constexpr int gammaBlueBar = 4014;
inline constexpr int descreenCheck = 1004;
inline constexpr int highBitCheck = 1005;
inline constexpr int singleFileCheck = 1006;
inline constexpr int closeShort = 3;  // used while the JPEG group is off
inline constexpr int closeLong = 2;   // used while the JPEG group is on
inline constexpr int qualitySlider = 1013;
inline constexpr int qualityEdit = 1014;
inline constexpr int qualitySpin = 1021;
inline constexpr int smallestLabel = 1031;
inline constexpr int bestLabel = 1032;
inline constexpr int gammaGroup = 4000;
inline constexpr int jpegGroup = 1030;
inline constexpr int brightnessIcon = 1043;
inline constexpr int contrastIcon = 1044;
inline constexpr int gammaAllPicture = 1048;
inline constexpr int gammaGreenPicture = 1049;
inline constexpr int gammaBluePicture = 1050;
inline constexpr int gammaRedPicture = 1052;
}  // namespace id103

// Dialog 104.
namespace id104 {
inline constexpr int nameEdit = 1003;
inline constexpr int nameLabel = 65535;
}  // namespace id104

// Dialog 115.
namespace id115 {
inline constexpr int text = 1033;
inline constexpr int icon = 1034;
}  // namespace id115

// Dialog 119.
namespace id119 {
inline constexpr int address = 1099;
inline constexpr int addressLabel = 1100;
inline constexpr int message = 1102;
}  // namespace id119

// Dialog 120.
namespace id120 {
inline constexpr int text = 1101;
}  // namespace id120

// Dialog 148.
namespace id148 {
inline constexpr int viewTabs = 1067;
inline constexpr int bandCombo = 1059;
inline constexpr int bandLabel = 1076;
inline constexpr int pictureFrame = 1058;
inline constexpr int xLabel = 1088;
inline constexpr int yLabel = 1089;
inline constexpr int xValue = 1090;
inline constexpr int yValue = 1091;
inline constexpr int firstEdit = 1062;
inline constexpr int firstSlider = 1061;
inline constexpr int firstSpin = 1060;
inline constexpr int firstLabel = 1068;
inline constexpr int secondEdit = 1136;
inline constexpr int secondSlider = 1352;
inline constexpr int secondSpin = 1351;
inline constexpr int secondLabel = 1069;
inline constexpr int blurLabel = 1070;
inline constexpr int sharpenLabel = 1071;
inline constexpr int resetButton = 1235;
inline constexpr int resetButton2 = 1034;
inline constexpr int autoButton = 1035;
inline constexpr int loadButton = 1005;
inline constexpr int saveButton = 1006;
inline constexpr int descreenCheck = 1083;
inline constexpr int magazineRadio = 1028;
inline constexpr int newspaperRadio = 1029;
inline constexpr int picturePrintRadio = 1030;
inline constexpr int highBitCheck = 1066;
inline constexpr int pageGroup = 1093;
}  // namespace id148

// The sheet.
namespace id_sheet {
inline constexpr int tabs = 12320;
}  // namespace id_sheet

// Texts of the string table.
namespace text {
inline constexpr int integerRange = 1350;  // two numbers
inline constexpr int decimalRange = 1351;  // four numbers
inline constexpr int productName = 1403;
inline constexpr int defaultsTip = 1453;
inline constexpr int userDefinedTip = 1454;
inline constexpr int saveTip = 1457;
inline constexpr int deleteTip = 1458;
inline constexpr int autoCropTip = 1459;
inline constexpr int newConfigName = 1460;
inline constexpr int addScannerAtClose = 1461;  // reads like addScanner
inline constexpr int colour = 2000;
inline constexpr int gray = 2001;
inline constexpr int blackWhite = 2002;
inline constexpr int resolutionTip = 2003;
inline constexpr int brightnessTip = 2004;
inline constexpr int contrastTip = 2005;
inline constexpr int widthTip = 2007;
inline constexpr int heightTip = 2008;
inline constexpr int unitTip = 2009;
inline constexpr int sizeTip = 2010;
inline constexpr int advancedTip = 2013;
inline constexpr int mixedGammaTip = 2019;
inline constexpr int bandGammaTip = 2020;
inline constexpr int gammaAllTip = 2021;
inline constexpr int gammaRedTip = 2022;
inline constexpr int gammaGreenTip = 2023;
inline constexpr int gammaBlueTip = 2024;
inline constexpr int jpegColour = 2025;
inline constexpr int jpegGray = 2026;
inline constexpr int advancedTitle = 4021;
inline constexpr int warning36Bits = 9217;
inline constexpr int warning42Bits = 9218;
inline constexpr int warning48Bits = 9219;
inline constexpr int warning16Bits = 9220;
inline constexpr int firstFactoryConfig = 9770;  // ten names, 9770 to 9779
inline constexpr int dpi75 = 10100;
inline constexpr int dpi100 = 10101;
inline constexpr int dpi150 = 10102;
inline constexpr int dpi200 = 10103;
inline constexpr int dpi300 = 10104;
inline constexpr int dpi400 = 10105;
inline constexpr int dpi500 = 10106;
inline constexpr int dpi600 = 10107;
inline constexpr int dpi1200 = 10108;
inline constexpr int dpi2400 = 10109;
inline constexpr int dpi4800 = 10110;
inline constexpr int dpi9600 = 10111;
inline constexpr int dpiUserDefined = 10112;
inline constexpr int dpi19200 = 10113;
inline constexpr int size3x5 = 10200;
inline constexpr int size4x6 = 10201;
inline constexpr int size5x7 = 10202;
inline constexpr int sizeLetter = 10203;
inline constexpr int sizeA4 = 10204;
inline constexpr int sizeB5 = 10205;
inline constexpr int sizeBusinessCard = 10206;
inline constexpr int sizeUserDefined = 10207;
inline constexpr int sizeA5 = 10208;
inline constexpr int sizeStatement = 10209;
inline constexpr int sizeLegal = 10217;
inline constexpr int sizeExecutive = 10218;
inline constexpr int unitInch = 10300;
inline constexpr int unitCentimetre = 10301;
inline constexpr int unitPixel = 10302;
inline constexpr int tooManyConfigs = 10304;
inline constexpr int replaceConfig = 10305;  // the name
inline constexpr int badConfigName = 10306;
inline constexpr int modeTip = 10307;
inline constexpr int descreenTip = 10308;
inline constexpr int sourceFlatbed = 10309;
inline constexpr int sourceFeeder = 10310;
inline constexpr int sourcePositive = 10311;
inline constexpr int sourceNegative = 10313;
inline constexpr int sizeNegativeFilm = 10315;
inline constexpr int output42Bits = 10316;
inline constexpr int jpegTip = 10317;
inline constexpr int deleteQuestionStart = 10318;
inline constexpr int deleteQuestionEnd = 10319;
inline constexpr int output48Bits = 10320;
inline constexpr int output16Bits = 10321;
inline constexpr int gammaBalance = 10322;
inline constexpr int colourBalance = 10323;
inline constexpr int gammaLabel = 10324;
inline constexpr int sharpnessLabel = 10325;
inline constexpr int brightnessLabel = 10328;
inline constexpr int contrastLabel = 10329;
inline constexpr int saturationLabel = 10330;
inline constexpr int hueLabel = 10331;
inline constexpr int bandLabel = 10332;
inline constexpr int histogramLabel = 10333;
inline constexpr int saturationHueTip = 10334;
inline constexpr int brightnessContrastTip = 10335;
inline constexpr int gammaSharpnessTip = 10336;
inline constexpr int removeFrameTip = 10337;
inline constexpr int bandAll = 10338;
inline constexpr int bandRed = 10339;
inline constexpr int bandGreen = 10340;
inline constexpr int bandBlue = 10341;
inline constexpr int sizePositiveFilm = 10342;
inline constexpr int addScanner = 10343;
inline constexpr int searchingLocal = 10344;
inline constexpr int protectedConfig = 10345;
inline constexpr int badAddress = 10346;
inline constexpr int noDeviceThere = 10347;
}  // namespace text

// Pictures, by name or number.
namespace picture {
inline constexpr std::string_view hueWheel = "117";
inline constexpr std::string_view viewTabs = "130";
inline constexpr std::string_view frameTabs = "132";
inline constexpr std::string_view modeBlackWhite = "134";
inline constexpr std::string_view modeGray = "135";
inline constexpr std::string_view modeColour = "158";
inline constexpr std::string_view modeJpegColour = "159";
inline constexpr std::string_view modeJpegGray = "160";
inline constexpr std::string_view windowIcon = "11";
inline constexpr std::string_view windowIconOem = "116";
inline constexpr std::string_view brightness = "113";
inline constexpr std::string_view contrast = "114";
inline constexpr std::string_view gammaColour = "RGBGAMMAU";
inline constexpr std::string_view gammaGray = "GRAYGAMMAU";
inline constexpr std::string_view gammaBw = "BWGAMMAU";
inline constexpr std::string_view gammaRed = "REDGAMMAU";
inline constexpr std::string_view gammaGreen = "GREENGAMMAU";
inline constexpr std::string_view gammaBlue = "BLUEGAMMAU";
}  // namespace picture

}  // namespace set32
