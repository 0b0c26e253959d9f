// The rows of each dialog stand in tabbing order, and a label right before the control that it names. Where one label
// serves two controls, or none stands there, the row has a name for screen readers. Pictures of a picture control are
// set by the program; a picture button's caption is the first part of the names of its pictures.
#include "resources/dialogs.h"

#include <algorithm>
#include <array>

#include "resources/ids.h"

namespace set32 {
namespace {

using Kind = ControlKind;
using control_flag::alignRight;
using control_flag::digitsOnly;
using control_flag::disabled;
using control_flag::fill;
using control_flag::groupStart;
using control_flag::hidden;
using control_flag::readOnly;

constexpr auto generalControls = std::to_array<ControlTemplate>({
    {id::sourceLabel, Kind::label, "紙張:", 3, 27, 32, 8},
    {id::sourceCombo, Kind::combo, "", 35, 26, 125, 82},
    {id::saveButton, Kind::button, "另存新檔(&A)", 69, 129, 45, 12},
    {id::deleteButton, Kind::button, "刪除(&D)", 117, 129, 46, 12},
    {id::modeLabel, Kind::label, "模式:", 6, 161, 35, 8},
    {id::modeCombo, Kind::iconCombo, "", 49, 159, 117, 82},
    {id::resolutionLabel, Kind::label, "解析度:", 6, 180, 42, 8},
    {id::resolutionCombo, Kind::combo, "", 49, 178, 78, 162},
    {id::resolutionEdit, Kind::edit, "", 128, 178, 38, 12, 0, "使用者定義"},
    {id::sizeLabel, Kind::label, "尺寸:", 6, 195, 28, 8},
    {id::sizeCombo, Kind::combo, "", 49, 193, 78, 122},
    {id::unitCombo, Kind::combo, "", 128, 193, 38, 50, 0, "感光鼓組件"},
    {id::widthEdit, Kind::edit, "", 63, 209, 38, 12, 0, "寬度"},
    {id::heightEdit, Kind::edit, "", 123, 209, 43, 12, 0, "高度"},
    {id::advancedButton, Kind::button, "進階設定(&V)...", 6, 211, 68, 11, hidden},
    {id::removeFrameButton, Kind::button, "移除", 56, 224, 34, 12},
    {id::autoCropCheck, Kind::check, "自動裁切", 112, 224, 55, 10, hidden},
    {id::framesLabel, Kind::label, "掃描作業:", 6, 224, 45, 8},
    {id::frameTabs, Kind::tab, "Tab1", 4, 239, 163, 17, 0, "掃描作業"},
    {id::listGroup, Kind::group, "掃描頁面:", 0, 0, 169, 146},
    {id::colourRadio, Kind::radio, "", 43, 162, 8, 8, hidden | groupStart},
    {id::colourButton, Kind::pictureButton, "彩色", 53, 157, 16, 16, hidden},
    {id::grayRadio, Kind::radio, "", 87, 166, 8, 8, hidden},
    {id::grayButton, Kind::pictureButton, "灰色", 97, 157, 16, 16, hidden},
    {id::bwRadio, Kind::radio, "", 131, 166, 8, 8, hidden},
    {id::bwButton, Kind::pictureButton, "黑白", 141, 157, 16, 16, hidden},
    {id::widthPicture, Kind::pictureButton, "SWIDTH", 51, 211, 8, 8, 0, "尺寸: 寬度"},
    {id::heightPicture, Kind::pictureButton, "SHEIGHT", 112, 211, 8, 8, 0, "尺寸: 高度"},
    {id::scanGroup, Kind::group, "掃描配置", 0, 146, 169, 113},
    {id::scannerLabel, Kind::label, "掃描器:", 3, 13, 31, 8},
    {id::scannerCombo, Kind::combo, "", 35, 11, 84, 82},
    {id::refreshButton, Kind::button, "重新整理", 122, 11, 38, 12},
    {id::configList, Kind::list, "List1", 7, 45, 155, 80, 0, "掃描頁面"},
});

constexpr auto gammaControls = std::to_array<ControlTemplate>({
    {id103::defaultsRadio, Kind::radio, "預設值(&D)", 7, 4, 113, 8, groupStart},
    {id103::customRadio, Kind::radio, "自訂設定(&C)", 7, 17, 113, 8},
    {id103::brightnessEdit, Kind::edit, "", 33, 36, 20, 12, 0, "亮度"},
    {id103::brightnessBar, Kind::scroll, "", 55, 36, 72, 12},
    {id103::contrastEdit, Kind::edit, "", 33, 59, 20, 12, 0, "對比"},
    {id103::contrastBar, Kind::scroll, "", 55, 59, 72, 12},
    {id103::gammaAllRadio, Kind::radio, "自動色彩平衡(&A)", 15, 78, 100, 10, groupStart},
    {id103::gammaBandsRadio, Kind::radio, "手動(&M)", 15, 90, 102, 8},
    {id103::gammaRedEdit, Kind::edit, "", 33, 102, 20, 12, 0, "紅色色帶珈碼"},
    {id103::gammaRedBar, Kind::scroll, "", 55, 102, 72, 12},
    {id103::gammaGreenEdit, Kind::edit, "", 33, 117, 20, 12, 0, "綠色色帶珈碼"},
    {id103::gammaGreenBar, Kind::scroll, "", 55, 117, 72, 12},
    {id103::gammaBlueEdit, Kind::edit, "", 33, 133, 20, 12, 0, "藍色色帶珈碼"},
    {id103::gammaBlueBar, Kind::scroll, "", 55, 133, 72, 12},
    {id103::gammaAllEdit, Kind::edit, "", 33, 101, 20, 12, hidden, "混合珈碼"},
    {id103::gammaAllBar, Kind::scroll, "", 55, 101, 72, 12, hidden},
    {id103::descreenCheck, Kind::check, "Descreen", 11, 156, 49, 10},
    {id103::highBitCheck, Kind::check, "36-Bit Output", 64, 157, 57, 10},
    {id103::closeShort, Kind::button, "確定", 8, 171, 124, 14, hidden},
    {id103::closeLong, Kind::button, "確定", 7, 222, 125, 14},
    {id103::qualitySlider, Kind::slider, "Slider1", 11, 184, 82, 18, 0, "尺寸最小化 - 較佳品質"},
    {id103::qualityEdit, Kind::edit, "", 97, 185, 23, 12, digitsOnly | alignRight, "JPEG 品質"},
    {id103::smallestLabel, Kind::label, "尺寸最小化", 9, 203, 42, 8},
    {id103::bestLabel, Kind::label, "較佳品質", 72, 204, 43, 8},
    {id103::singleFileCheck, Kind::check, "單一檔案", 11, 170, 56, 10, hidden | disabled},
    {id103::qualitySpin, Kind::spin, "Spin1", 113, 186, 7, 11},
    {id103::gammaGroup, Kind::group, "", 7, 25, 125, 127},
    {id103::jpegGroup, Kind::group, "JPEG 品質", 7, 168, 125, 52},
    {id103::brightnessIcon, Kind::picture, "", 10, 33, 21, 23},
    {id103::contrastIcon, Kind::picture, "", 10, 55, 21, 23},
    {id103::gammaAllPicture, Kind::picture, "RGB 珈碼", 16, 101, 15, 15},
    {id103::gammaBluePicture, Kind::picture, "藍色珈碼", 15, 134, 15, 15},
    {id103::gammaGreenPicture, Kind::picture, "綠色珈碼", 15, 117, 15, 15},
    {id103::gammaRedPicture, Kind::picture, "紅色珈碼", 15, 101, 15, 15},
});

constexpr auto saveConfigControls = std::to_array<ControlTemplate>({
    {id104::nameLabel, Kind::label, "請輸入此掃描配置的名稱:", 9, 6, 160, 8},
    {id104::nameEdit, Kind::edit, "", 9, 19, 155, 12},
    {id::ok, Kind::defaultButton, "儲存", 56, 44, 50, 14},
    {id::cancel, Kind::button, "取消", 114, 44, 50, 14},
});

constexpr auto messageControls = std::to_array<ControlTemplate>({
    {id::ok, Kind::defaultButton, "確定", 95, 46, 50, 14},
    {id::cancel, Kind::button, "取消", 128, 45, 50, 14, hidden | disabled},
    {id115::text, Kind::label, "", 29, 18, 205, 24},
    {id115::icon, Kind::picture, "", 5, 14, 20, 20},
});

constexpr auto addScannerControls = std::to_array<ControlTemplate>({
    {id::ok, Kind::defaultButton, "OK", 46, 48, 43, 12},
    {id::cancel, Kind::button, "取消", 108, 49, 43, 11},
    {id119::addressLabel, Kind::label, "IP 位址:", 4, 25, 48, 8},
    {id119::address, Kind::address, "IDC_SCANNERIPADDRESS", 53, 23, 109, 13},
    {id119::message, Kind::label, "Static", 2, 67, 182, 8},
});

constexpr auto searchingControls = std::to_array<ControlTemplate>({
    {id120::text, Kind::label, "正在本端網路中搜尋......", 4, 5, 159, 11},
});

constexpr auto advancedControls = std::to_array<ControlTemplate>({
    {id148::viewTabs, Kind::tab, "Tab1", 3, 6, 144, 23},
    {id148::bandLabel, Kind::label, "色帶:", 4, 29, 38, 8},
    {id148::bandCombo, Kind::combo, "", 43, 27, 49, 53},
    {id148::resetButton, Kind::button, "重設(&R)", 132, 114, 32, 12},
    {id148::firstLabel, Kind::label, "珈碼:", 5, 138, 41, 8},
    {id148::firstEdit, Kind::edit, "", 48, 136, 30, 12, readOnly},
    {id148::firstSlider, Kind::slider, "Slider1", 1, 148, 85, 21},
    {id148::secondLabel, Kind::label, "清晰度:", 4, 180, 39, 8},
    {id148::secondEdit, Kind::edit, "", 47, 178, 30, 12, readOnly},
    {id148::secondSlider, Kind::slider, "Slider1", 1, 191, 85, 21},
    {id148::highBitCheck, Kind::check, "48 Bits per pixel", 98, 136, 65, 10, hidden},
    {id148::descreenCheck, Kind::check, "減少網花", 93, 178, 73, 10},
    {id148::autoButton, Kind::button, "自動(&U)", 40, 213, 28, 12, hidden | disabled},
    {id148::resetButton2, Kind::button, "重設(&R)", 70, 213, 28, 12, hidden | disabled},
    {id148::firstSpin, Kind::spin, "Spin1", 78, 136, 9, 12},
    {id148::loadButton, Kind::button, "載入(&L)", 132, 85, 32, 12, hidden | disabled},
    {id148::saveButton, Kind::button, "儲存", 132, 99, 32, 12, hidden | disabled},
    {id148::pictureFrame, Kind::frame, "", 3, 43, 126, 85},
    {id148::xLabel, Kind::label, "X:", 133, 47, 9, 8},
    {id148::yLabel, Kind::label, "Y:", 133, 62, 8, 8},
    {id148::pageGroup, Kind::group, "", 0, 0, 169, 226},
    {id148::magazineRadio, Kind::radio, "雜誌", 104, 188, 58, 10, disabled | groupStart},
    {id148::newspaperRadio, Kind::radio, "報紙", 104, 200, 58, 10, disabled},
    {id148::picturePrintRadio, Kind::radio, "圖片列印", 104, 211, 60, 10, disabled},
    {id148::secondSpin, Kind::spin, "Spin1", 78, 178, 9, 12},
    {id148::sharpenLabel, Kind::label, "清晰化", 64, 212, 39, 8},
    {id148::blurLabel, Kind::label, "模糊", 6, 212, 35, 8},
    {id148::xValue, Kind::label, "", 143, 46, 23, 8},
    {id148::yValue, Kind::label, "", 143, 62, 22, 8},
});

constexpr auto sheetControls = std::to_array<ControlTemplate>({
    {id_sheet::tabs, Kind::tab, "", 0, 0, 0, 0, fill, "Select Scanner Settings"},
});

constexpr const char* uiFont = "MS Sans Serif";

constexpr auto dialogs = std::to_array<DialogTemplate>({
    {dialog::general, "一般", {180, 261}, uiFont, 8, DialogStyle::child, generalControls},
    {dialog::gamma, "進階設定", {139, 241}, uiFont, 8, DialogStyle::modelessPopup, gammaControls},
    {dialog::saveConfig, "儲存掃描配置", {175, 66}, uiFont, 8, DialogStyle::modalPopup, saveConfigControls},
    {dialog::message, "", {242, 66}, uiFont, 8, DialogStyle::notePopup, messageControls},
    {dialog::addScanner, "加入掃描器 IP...", {188, 78}, uiFont, 8, DialogStyle::modalPopup, addScannerControls},
    {dialog::searching, "", {169, 21}, "Arial", 10, DialogStyle::bare, searchingControls},
    {dialog::advanced, "進階", {173, 233}, uiFont, 8, DialogStyle::child, advancedControls},
    {dialog::sheet, "", {0, 0}, uiFont, 8, DialogStyle::sheet, sheetControls},
});

}  // namespace

const DialogTemplate* FindDialog(int id) {
  const auto found = std::ranges::find(dialogs, id, &DialogTemplate::id);
  return found != dialogs.end() ? &*found : nullptr;
}

}  // namespace set32
