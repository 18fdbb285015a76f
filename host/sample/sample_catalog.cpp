#include "host/sample/sample_catalog.h"

#include <array>

namespace kelvane::host {

namespace {

constexpr std::array kCenters = std::to_array<SampleCenter>({
    {"D01", "工程一部"},
    {"D02", "工程二部"},
    {"D03", "工程三部"},
    {"D04", "路桥事业部"},
    {"D05", "市政分公司"},
    {"D06", "机电安装部"},
    {"D07", "装饰装修部"},
    {"D08", "设备租赁部"},
});

constexpr std::array kOperators = std::to_array<SampleOperator>({
    {"demo", "演示用户", true, 0},
    {"zhang", "张会计", false, 3},
    {"li", "李出纳", false, 0},
});

constexpr std::array kProjects = std::to_array<SampleProject>({
    {"P001", "滨江花园一期住宅"}, {"P002", "滨江花园二期住宅"},
    {"P003", "城北快速路改造"},   {"P004", "南湖大桥主桥"},
    {"P005", "南湖大桥引桥"},     {"P006", "市第三人民医院门诊楼"},
    {"P007", "东风路综合管沟"},   {"P008", "高新区污水处理厂"},
    {"P009", "会展中心钢结构"},   {"P010", "会展中心机电安装"},
    {"P011", "师范学院图书馆"},   {"P012", "铁路新客站站前广场"},
    {"P013", "环城高速东段路基"}, {"P014", "环城高速东段路面"},
    {"P015", "环城高速跨线桥"},   {"P016", "第二实验小学教学楼"},
    {"P017", "金融大厦主体结构"}, {"P018", "金融大厦幕墙"},
    {"P019", "金融大厦精装修"},   {"P020", "自来水二厂取水泵房"},
    {"P021", "体育馆屋面网架"},   {"P022", "旧城区雨污分流"},
    {"P023", "科技园研发楼"},     {"P024", "科技园地下车库"},
    {"P025", "港口物流仓库"},     {"P026", "港口堆场硬化"},
    {"P027", "开发区变电站土建"}, {"P028", "滨河公园景观"},
    {"P029", "机场航站楼扩建"},   {"P030", "机场滑行道加固"},
});

constexpr std::array kClosings = std::to_array<SampleClosing>({
    {"P007", "2003-12-20", false},
    {"P013", "2004-05-31", true},
    {"P019", "2004-09-30", false},
    {"P022", "", false},
    {"P025", "2004-07-01", false},
});

constexpr std::array kElements = std::to_array<SampleElement>({
    {"E01", "人工费", DetailKind::None, ""},
    {"E02", "现场管理费", DetailKind::None, ""},
    {"E03", "临时设施费", DetailKind::None, ""},
    {"E04", "分包工程费", DetailKind::None, ""},
    {"E05", "安全文明施工费", DetailKind::None, ""},
    {"E06", "检验试验费", DetailKind::None, ""},
    {"E11", "主要材料费", DetailKind::Inventory, "01"},
    {"E12", "钢材费", DetailKind::Inventory, "0101"},
    {"E13", "水泥费", DetailKind::Inventory, "0102"},
    {"E14", "周转材料费", DetailKind::Inventory, "02"},
    {"E15", "其他材料费", DetailKind::Inventory, kNoClass},
    {"E21", "机械使用费", DetailKind::Equipment, ""},
    {"E22", "外租设备费", DetailKind::Equipment, ""},
});

constexpr std::array kUnits = std::to_array<SampleUnit>({
    {"01", "吨"},
    {"02", "立方米"},
    {"03", "平方米"},
    {"04", "米"},
    {"05", "个"},
    {"06", "千块"},
    {"07", "套"},
});

constexpr std::array kInventories = std::to_array<SampleInventory>({
    {"010101", "螺纹钢", "HRB335 Φ12", 346000, "01", "0101"},
    {"010102", "螺纹钢", "HRB335 Φ25", 338500, "01", "0101"},
    {"010103", "圆钢", "HPB235 Φ8", 352000, "01", "0101"},
    {"010104", "工字钢", "I25a", 375000, "01", "0101"},
    {"010105", "钢绞线", "1×7 Φ15.2", 568000, "01", "0101"},
    {"010201", "普通硅酸盐水泥", "P.O 32.5", 26500, "01", "0102"},
    {"010202", "普通硅酸盐水泥", "P.O 42.5", 31000, "01", "0102"},
    {"010203", "白水泥", "425#", 58000, "01", "0102"},
    {"010301", "中砂", "细度模数2.6", 4550, "02", "0103"},
    {"010302", "碎石", "5-25mm", 5280, "02", "0103"},
    {"010303", "商品混凝土", "C30", 28600, "02", "0103"},
    {"010304", "商品混凝土", "C50", 36800, "02", "0103"},
    {"010401", "烧结砖", "240×115×53", 22000, "06", "0104"},
    {"010402", "加气混凝土砌块", "600×240×200", 18500, "02", "0104"},
    {"010501", "沥青混凝土", "AC-16", 29800, "01", "0105"},
    {"020101", "钢管", "Φ48×3.5", 1480, "04", "0201"},
    {"020102", "直角扣件", "GKZ48A", 460, "05", "0201"},
    {"020103", "竹脚手板", "3000×250", 1850, "05", "0201"},
    {"020201", "组合钢模板", "P3015", 5240, "03", "0202"},
    {"020202", "木胶合模板", "1830×915×15", 4860, "03", "0202"},
    {"030101", "电力电缆", "YJV 4×25", 8680, "04", "0301"},
    {"030102", "配电箱", "XL-21", 186000, "07", "0301"},
    {"030201", "镀锌钢管", "DN50", 2650, "04", "0302"},
    {"030901", "零星五金", "", 10000, "", "0309"},
});

constexpr std::array kEquipments = std::to_array<SampleEquipment>({
    {"01", "土方机械", "", 0, false},
    {"0101", "履带式挖掘机", "PC200", 124000, true},
    {"0102", "推土机", "TY160", 98600, true},
    {"0103", "振动压路机", "YZ18", 86500, true},
    {"0104", "平地机", "PY180", 102000, true},
    {"02", "起重机械", "", 0, false},
    {"0201", "塔式起重机", "QTZ63", 68000, true},
    {"0202", "汽车起重机", "QY25", 132000, true},
    {"0203", "施工升降机", "SCD200", 42000, true},
    {"03", "混凝土机械", "", 0, false},
    {"0301", "混凝土输送泵", "HBT60", 88000, true},
    {"0302", "混凝土搅拌运输车", "6m3", 96000, true},
    {"0303", "沥青摊铺机", "ABG423", 465000, true},
    {"04", "动力机械", "", 0, false},
    {"0401", "柴油发电机组", "120kW", 35500, true},
    {"0402", "空气压缩机", "9m3/min", 28600, true},
});

constexpr std::array kDigests = std::to_array<std::string_view>({
    "期初余额结转",
    "截至启用前累计发生",
    "上年未完工程结转",
    "一季度发生额",
    "二季度发生额",
    "基础施工阶段",
    "主体施工阶段",
    "甲供材料转入",
    "补录前期成本",
    "分包结算暂估",
});

}  // namespace

std::span<const SampleCenter> SampleCenters() {
    return kCenters;
}
std::span<const SampleOperator> SampleOperators() {
    return kOperators;
}
std::span<const SampleProject> SampleProjects() {
    return kProjects;
}
std::span<const SampleClosing> SampleClosings() {
    return kClosings;
}
std::span<const SampleElement> SampleElements() {
    return kElements;
}
std::span<const SampleUnit> SampleUnits() {
    return kUnits;
}
std::span<const SampleInventory> SampleInventories() {
    return kInventories;
}
std::span<const SampleEquipment> SampleEquipments() {
    return kEquipments;
}
std::span<const std::string_view> SampleDigests() {
    return kDigests;
}

}  // namespace kelvane::host
