#include "shell/LanguageTables.h"

// Required to the letter, blanks at the ends and odd words ("Casade", "Please choice") included: tables and manual
// agree. Nobody should repair them.

namespace {

constexpr CaptionRow toolBarToolTips[] = {
    {"New", "New", "新建工程"},
    {"Open", "Open", "打开工程"},
    {"Save", "Save", "保存工程"},
    {"Connect", "Connect To Multimeter", "连接"},
    {"DisConnect", "DisConnect", "断开连接"},
    {"Options", "Sensor Options", "传感器属性"},
    {"TileHorizontal", "Tile Horizontal", "水平"},
    {"TileVertical", "Tile Vertical", "垂直"},
    {"CasadeWindows", "Casade windows", "层叠"},
    {"Help", "Help", "帮助"},
};

constexpr CaptionRow frameMenuCaptions[] = {
    {"mnuFile", "&File", "文件"},
    {"mnuFileNew", "&New Project...", "新建工程..."},
    {"mnuFileOpen", "&Open Project...", "打开工程..."},
    {"mnuFileSave", "&Save Project", "保存工程"},
    {"mnuFileSaveAs", "&Save Project As...", "工程另存为..."},
    {"mnuFileSaveAllProject", "Sav&e All", "保存所有工程"},
    {"mnuFileCloseAllProjects", "&Close All ", "关闭所有工程 "},
    {"mnuFilePageSetup", "Print Set&up...", "打印设置..."},
    {"mnuFileExit", "E&xit", "退出"},
    {"mnuView", "&View", "视图"},
    {"mnuViewToolbar", "&Toolbar", "工具栏"},
    {"mnuViewStatusBar", "Status &Bar", "状态栏"},
    {"mnuViewProjectWindow", "&Project Window", "工程浏览窗口"},
    {"mnuSettings", "&Settings", "设置"},
    {"mnuSettingsSensorOption", "Sensor &Option...", "传感器属性..."},
    {"mnuSettingsArithmeticSetting", "Arithmetic &Setting...", "基本算法设置..."},
    {"mnuSettingsUserDefine", "&User Define...", "自定义算法..."},
    {"mnuSettingsIO", "&I/O Settings...", "接口设置..."},
    {"mnuSettingsCommand", "&Command Collection...", "命令集..."},
    {"mnuTools", "&Tools", "工具"},
    {"mnuToolsConnect", "&Connect to Multimeter", "连接"},
    {"mnuToolsDisconnect", "&Disconnect", "断开连接"},
    {"mnuToolsSensorOption", "Sensor &Option...", "传感器属性..."},
    {"mnuToolsEnableSensor", "&Send Project to Instrument...", "下载工程到仪器..."},
    {"mnuLibrary", "&Library", "用例库"},
    {"mnuWindow", "&Window", "窗口"},
    {"mnuWindowTileHorizontal", "&Horizontal", "水平"},
    {"mnuWindowTileVertical", "&Vertical", "垂直"},
    {"mnuWindowArrangeIcons", "&Arrange Icons", "排列图标"},
    {"mnuWindowCascade", "&Cascade", "层叠"},
    {"mnuHelp", "&Help", "帮助"},
    {"mnuHelpContents", "Contents...", "内容..."},
    {"mnuHelpAbout", "&About...", "关于..."},
    {"mnuHelpLanguage", "&Language", "语言设置"},
    {"mnuHelpLang_Chinese", "&Chinese", "中文"},
    {"mnuHelpLang_English", "&English", "英文"},
};

constexpr CaptionRow gridMenuCaptions[] = {
    {"mnuPopEditDataAdd", "Add...", "添加..."}, {"mnuPopEditDataChange", "Modify...", "修改..."},
    {"mnuPopEditDataDelete", "Delete", "删除"}, {"mnuPopEditDataDeleteAll", "Delete All", "删除所有"},
    {"mnuPopEditDataApply", "Apply", "应用"},   {"mnuPopEditDataExport", "Export", "导出"},
};

constexpr CaptionRow treeMenuCaptions[] = {
    {"mnuNewProject", "&New Project...", "新建工程..."},
    {"mnuOpenProject", "&Open Project...", "打开工程..."},
    {"mnuSaveProject", "&Save Project", "保存工程"},
    {"mnuSaveProjectAs", "Sa&ve Project As...", "另存工程为..."},
    {"mnuSaveAllProjects", "Save &All Projects", "保存所有工程"},
    {"mnuRename", "&Rename", "重命名"},
    {"mnuCloseProject", "&Close Project", "关闭工程"},
    {"mnuCloseAllProjects", "Close All &Projects", "关闭所有工程"},
    {"mnuPop2NewProject", "&New Project...", "新建工程..."},
    {"mnuPop2OpenProject", "&Open Project...", "打开工程..."},
    {"mnuPop2SaveAllProjects", "Save &All Projects", "保存所有工程"},
    {"mnuPop2CloseAllProjects", "Close All &Projects", "关闭所有工程"},
};

constexpr CaptionRow deviceChoiceCaptions[] = {
    {"LabelInfo", "Please choice a device.", "请选择设备。"},
    {"BtOk", "OK", "确定"},
};

constexpr CaptionRow projectButtonCaptions[] = {
    {"RecordLumoBtn", "Start", "开始测量"},
    {"EndLumoBtn", "End", "结束测量"},
    {"ReplayLumoBtn", "Replay", "回放"},
    {"PauseLumoBtn", "Pause", "暂停"},
    {"StopLumoBtn", "Stop", "结束"},
    {"LowLumoBtn", "/ 2", "/ 2"},
    {"FastLumoBtn", "× 2", "× 2"},
    {"ColorLumoBtn", "Color Setting", "颜色设置"},
    {"ZoominHLumoBtn", "Horizontal Zoomin", "水平放大"},
    {"ZoomInVLumoBtn", "Vertical Zoomin", "垂直放大"},
    {"ZoomOutHLumoBtn", "Horizontal Zoomout", "水平缩小"},
    {"ZoomOutVLumoBtn", "Vertical Zoomout", "垂直缩小"},
    {"ImportLumoBtn", "Import", "导入"},
    {"ExportLumoBtn", "Export", "导出"},
    {"RedoLumoBtn", "Redo", "恢复"},
    {"UndoLumoBtn", "Undo", "撤销"},
};

constexpr CaptionRow editDataCaptions[] = {
    {"NOLal", "NO.", "数据序号"},
    {"VolLab", "Input", "输入参考"},
    {"TemperatureLab", "Output", "输出参考"},
    {"SegmentLab", "Segment dot? ", "分段点? "},
    {"MathLab", "Arithmetic", "拟合算法"},
    {"SegmentOpt(0)", "Yes", "是"},
    {"SegmentOpt(1)", "No", "否"},
    {"MathOpt(0)", "Line", "线性插值"},
    {"MathOpt(1)", "Least", "曲线拟合"},
    {"OkCmd", "OK", "确定"},
    {"CancelCmd", "Cancel", "取消"},
};

constexpr CaptionRow sensorPropertyCaptions[] = {
    {"", "Sensor Property", "传感器属性"},
    {"LabName", "Sensor name", "名称"},
    {"Txtname", "<Input sensor name here>", "<输入传感器名称>"},
    {"LabType", "Sensor type", "类型"},
    {"LabOutUnit", "Output unit", "输出单位"},
    {"LabInUnit", "Input unit", "输入单位"},
    {"LabelSubType", "SubType", "子类型"},
    {"LabelParameter", "R0", "R0"},
    {"ComdCancel", "Cancel", "取消"},
    {"ComdEnter", "Done", "确定"},
    {"OptDefault", "Default", "默认单位"},
    {"OptUser", "User define", "用户定义"},
    {"LabelbThermocouple", "Thermocouple? ", "是否热电偶? "},
    {"OptYes", "Yes", "是"},
    {"OptNo", "No", "否"},
};

constexpr CaptionRow refColourCaptions[] = {
    {"", "Color Setting", "颜色设置"},
    {"GridFrame", "Grid Color", "网格颜色"},
    {"AbscissaFrame", "Abscissa Color", "横坐标颜色"},
    {"OrdinateFrame", "Ordinate Color", "纵坐标颜色"},
    {"SegmentFrame", "Segment Dot Color", "分段点颜色"},
    {"LineDotFrame", "Line Dot Color", "线性点颜色"},
    {"LeastDotFrame", "Least Dot Color", "二乘法点颜色"},
    {"ComCancel", "Cancel", "取消"},
    {"ComOK", "OK", "确定"},
    {"ComApply", "Apply", "应用"},
};

constexpr CaptionRow waveColourCaptions[] = {
    {"", "Color Setting", "颜色设置"},
    {"GridFrame", "Grid Color", "网格颜色"},
    {"AbscissaFrame", "Abscissa Color", "横坐标颜色"},
    {"OrdinateFrame", "Ordinate Color", "纵坐标颜色"},
    {"ComCancel", "Cancel", "取消"},
    {"ComOK", "OK", "确定"},
    {"ComApply", "Apply", "应用"},
};

constexpr CaptionRow sendProjectCaptions[] = {
    {"", "Send Project", "发送工程"},
    {"InforFrame", "Information", "信息"},
    {"LabLenTitle", "Data Length", "数据长度"},
    {"LabNameTitle", "Sensor Name", "传感器名称"},
    {"LabTypeTitle", "Sensor Type", "传感器类型"},
    {"LabUnitTitle", "Sensor Unit", "传感器单位"},
    {"ComCancel", "Cancel", "取消"},
    {"ComSend", "Send", "发送"},
};

} // namespace

const CaptionRow HelpFileName = {"HelpFile", "/Ostrakon Help_EN.chm", "/Ostrakon Help.chm"};
const CaptionRow ProjectSheetCaption = {"ProjectSheetFrm", "Project", "工程"};
const CaptionRow ProjectRootCaption = {"ProjectSheetTree", "Project Group", "工程组"};

const CaptionRow TabCaptions[3] = {
    {"TabStrip", "Reference Curve", "传感器参考曲线"},
    {"TabStrip", "Edit Data", "传感器数据编辑"},
    {"TabStrip", "Measure Curve", "传感器测量曲线"},
};

const CaptionRow GridColumnTitles[3] = {
    {"EditDataView", "NO.", "数据序号"},
    {"EditDataView", "Arithmetic", "算法"},
    {"EditDataView", "Segment dot? ", "是否分段点? "},
};

const CaptionRow GridUnitTitle = {"EditDataView", "Unit: ", "单位： "};
// Required: the two dialogues differ in English only.
const CaptionRow Wave1DotCaption = {"DotFrame", "Dot Color", "点颜色"};
const CaptionRow Wave2DotCaption = {"DotFrame", "Measure Dot Color", "点颜色"};

std::span<const CaptionRow> ToolBarToolTips()
{
    return toolBarToolTips;
}

std::span<const CaptionRow> FrameMenuCaptions()
{
    return frameMenuCaptions;
}

std::span<const CaptionRow> GridMenuCaptions()
{
    return gridMenuCaptions;
}

std::span<const CaptionRow> TreeMenuCaptions()
{
    return treeMenuCaptions;
}

std::span<const CaptionRow> DeviceChoiceCaptions()
{
    return deviceChoiceCaptions;
}

std::span<const CaptionRow> ProjectButtonCaptions()
{
    return projectButtonCaptions;
}

std::span<const CaptionRow> EditDataCaptions()
{
    return editDataCaptions;
}

std::span<const CaptionRow> SensorPropertyCaptions()
{
    return sensorPropertyCaptions;
}

std::span<const CaptionRow> RefColourCaptions()
{
    return refColourCaptions;
}

std::span<const CaptionRow> WaveColourCaptions()
{
    return waveColourCaptions;
}

std::span<const CaptionRow> SendProjectCaptions()
{
    return sendProjectCaptions;
}
