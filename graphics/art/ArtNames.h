#pragma once

/// File names of the pictures that the authoring views show. An art directory need not have them all.
namespace graphics::ArtName {

// What an empty element asks for.
inline constexpr const char* kClickImage = "22x22_ClickImage.png";
inline constexpr const char* kClickText = "22x22_ClickText.png";
inline constexpr const char* kClickTable = "22x22_ClickTable.png";

// The small pictures of menus and toolbars.
inline constexpr const char* kOpen = "16x16_Open.png";
inline constexpr const char* kNew = "16x16_New.png";
inline constexpr const char* kSave = "16x16_Save.png";
inline constexpr const char* kSaveAs = "16x16_Save As.png";
inline constexpr const char* kExit = "16x16_Exit.png";
inline constexpr const char* kAbout = "16x16_About.png";
inline constexpr const char* kHelp = "16x16_Help.png";
inline constexpr const char* kUndo = "16x16_Undo.png";
inline constexpr const char* kRedo = "16x16_Redo.png";
inline constexpr const char* kRemove = "16x16_Remove (Delete).png";
inline constexpr const char* kCut = "16x16_Cut.png";
inline constexpr const char* kCopy = "16x16_Copy.png";
inline constexpr const char* kPaste = "16x16_Paste from Clipboard.png";
inline constexpr const char* kFit = "16x16_Fit.png";
inline constexpr const char* kCenter = "16x16_center.png";
inline constexpr const char* kCenterVertical = "16x16_Center Vertical.png";
inline constexpr const char* kCenterHorizontal = "16x16_Center Horizontal.png";
inline constexpr const char* kFrontButton = "16_16_frontbutton.png";
inline constexpr const char* kBackButton = "16x16_backbutton.png";
inline constexpr const char* kTextButton = "16x16_TextButton.png";
inline constexpr const char* kRectangle = "16x16_Rectangle.png";
inline constexpr const char* kShape = "16x16_Shape.png";
inline constexpr const char* kImageButton = "16x16_imagebutton.png";
inline constexpr const char* kTable = "16x16_Table.png";
inline constexpr const char* kRotateLeft = "16x16_RotateLeft.png";
inline constexpr const char* kRotateRight = "16x16_RotateRight.png";
inline constexpr const char* kBold = "16x16_bold.png";
inline constexpr const char* kItalic = "16x16_italic.png";
inline constexpr const char* kUnderline = "16x16_underline.png";
inline constexpr const char* kAlignLeft = "16x16_align_left.png";
inline constexpr const char* kAlignCenter = "16x16_align_center.png";
inline constexpr const char* kAlignRight = "16x16_align_right.png";
inline constexpr const char* kIndentLess = "16x16_indent_less.png";
inline constexpr const char* kIndentMore = "16x16_indent_more.png";
inline constexpr const char* kFont = "16x16_font.png";
inline constexpr const char* kZoomPlus = "16x16_Zoom_Plus.png";
inline constexpr const char* kZoomMinus = "16x16_Zoom_Minus.png";
inline constexpr const char* kMirrorX = "16x16_mirror_x.png";
inline constexpr const char* kMirrorY = "16x16_mirror_y.png";
inline constexpr const char* kSymbol = "16x16_Symbol.png";
inline constexpr const char* kUrl = "16x16_url.png";
inline constexpr const char* kImport = "16x16_Import.png";
inline constexpr const char* kInsertCol = "16x16_insert_col.png";
inline constexpr const char* kInsertRow = "16x16_insert_row.png";
inline constexpr const char* kAddRow = "16x16_add_row.png";
inline constexpr const char* kDeleteRow = "16x16_delete_row.png";
inline constexpr const char* kDeleteCol = "16x16_delete_col.png";
inline constexpr const char* kClearContent = "16x16_clear_content.png";
inline constexpr const char* kBackground = "16x16_background.png";
inline constexpr const char* kUp = "16x16_up.png";
inline constexpr const char* kDown = "16x16_Down.png";
inline constexpr const char* kDuplicate = "16x16_duplicate.png";
inline constexpr const char* kZoomAll = "16x16_Zoom_All.png";
inline constexpr const char* kZoomSelection = "16x16_Zoom_Selection.png";
inline constexpr const char* kPrint = "16x16_print.png";
inline constexpr const char* kPlayNormal = "16x16_play_normal.png";
inline constexpr const char* kStopNormal = "16x16_stop_normal.png";
inline constexpr const char* kSelectAll = "16x16_SelectAll.png";
inline constexpr const char* kEdit = "16x16_edit.png";
inline constexpr const char* kClearBackground = "16x16_clear_background.png";
inline constexpr const char* kAcquire = "16x16_acquire.png";
inline constexpr const char* kAnimation = "16x16_Animation.png";
inline constexpr const char* kMirrorForSelection = "16x16_MirrorForSelection.png";

// The larger ones.
inline constexpr const char* kOpen24 = "24x24_Open.png";
inline constexpr const char* kPlayHover32 = "32x32_play_hover.png";
inline constexpr const char* kPlayNormal32 = "32x32_play_normal.png";
inline constexpr const char* kStopHover32 = "32x32_stop_hover.png";
inline constexpr const char* kStopNormal32 = "32x32_stop_normal.png";
inline constexpr const char* kButtonNormal = "button_normal.png";
inline constexpr const char* kButtonPressed = "button_pressed.png";
inline constexpr const char* kButtonHover = "button_hover.png";
inline constexpr const char* kButtonShine = "button_shine.png";
inline constexpr const char* kTextButtonLarge = "TextButton.png";
inline constexpr const char* kTableButton = "TableButton.png";
inline constexpr const char* kImageButtonLarge = "imagebutton.png";
inline constexpr const char* kBackgroundButton = "BackgroundButton.png";
inline constexpr const char* kShapeButton = "ShapeButton.png";
inline constexpr const char* kButtonsButton = "ButtonsButton.png";
inline constexpr const char* kCapture = "capture.png";
inline constexpr const char* kFrame = "frame.png";
inline constexpr const char* kPlayOverlayNormal = "play_overlay_normal.png";
inline constexpr const char* kStopOverlayNormal = "stop_overlay_normal.png";
inline constexpr const char* kPlayOverlayHover = "play_overlay_hover.png";
inline constexpr const char* kStopOverlayHover = "stop_overlay_hover.png";
inline constexpr const char* kArrowsBottom = "arrows_bottom.png";
inline constexpr const char* kArrowsLeft = "arrows_left.png";
inline constexpr const char* kArrowsRight = "arrows_right.png";
inline constexpr const char* kArrowsTop = "arrows_top.png";
inline constexpr const char* kArrowDown = "ArrowDown.png";
inline constexpr const char* kTemplateBackground = "template_background.png";

}  // namespace graphics::ArtName
