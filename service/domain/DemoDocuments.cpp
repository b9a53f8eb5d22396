#include "service/domain/DemoDocuments.h"

#include <array>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unicode/ucnv.h>

#include "service/domain/DocumentFolders.h"
#include "service/domain/Documents.h"
#include "service/domain/Files.h"
#include "service/domain/Names.h"
#include "service/drawing/Drawing.h"
#include "service/ports/Changing.h"

namespace disclosure {

namespace {

struct Folder {
    const char* id;
    const char* parentId;
    const char* name;
};

constexpr Folder Folders[]{{"demo-folder-1", "0", "图纸"},
                           {"demo-folder-2", "demo-folder-1", "结构"},
                           {"demo-folder-3", "demo-folder-1", "基坑"},
                           {"demo-folder-4", "0", "施工方案"},
                           {"demo-folder-5", "0", "技术交底"},
                           {"demo-folder-6", "0", "规范标准"},
                           {"demo-folder-7", "0", "现场照片"}};
constexpr auto Structure = Folders[1].id;
constexpr auto Pits = Folders[2].id;
constexpr auto Schemes = Folders[3].id;
constexpr auto Briefings = Folders[4].id;
constexpr auto Standards = Folders[5].id;
constexpr auto Photos = Folders[6].id;

struct Trade {
    const char* name;
    const char* material;
    const char* work;
    const char* check;
    const char* danger;
};

constexpr Trade Trades[]{
    {"土方开挖", "挖掘机两台、自卸车六台，坡顶截水沟和集水井已完成。",
     "分层分段开挖，每层不超过2m，边坡按1:0.75放坡，坑底留200mm人工清底。",
     "坑底标高允许偏差0至-50mm，边坡坡度不得偏陡。", "坑边2m内不堆土、不停车，四周设1.2m高防护栏杆。"},
    {"桩基施工", "钻机就位前复核桩位，护筒埋深不小于1.5m，泥浆比重1.10至1.20。",
     "成孔后清孔，沉渣不大于50mm，导管距孔底300至500mm，连续灌注。", "桩位偏差不大于100mm，桩身完整性逐根检测。",
     "孔口加盖板并设警示灯，吊放钢筋笼时下方严禁站人。"},
    {"地下防水", "基层含水率不大于9%，阴阳角做成50mm圆弧，附加层宽500mm。",
     "卷材搭接100mm，上下层错开三分之一幅宽，封边密实。", "蓄水24小时无渗漏，搭接缝剥离强度符合要求。",
     "热熔作业配灭火器，通风不良处轮换作业。"},
    {"梁板钢筋", "钢筋有合格证和复试报告，弯钩按135度、平直段10d下料。",
     "先主梁后次梁再板，梁上部筋在跨中三分之一搭接，板筋弹线绑扎。", "受力筋间距偏差±10mm，保护层偏差±5mm。",
     "绑扎时搭设操作平台，不得踩踏已绑好的板面负筋。"},
    {"剪力墙钢筋", "竖筋接头位置错开35d，拉筋按梅花形布置。", "先暗柱后墙身，水平筋在外侧，定位梯子筋每2m一道。",
     "接头按批抽检，墙筋垂直度偏差不大于5mm。", "高度超过2m时系挂安全带，工具放入工具袋。"},
    {"高支模", "立杆间距900mm、步距1200mm，扫地杆距地200mm，方案已经专家论证。",
     "由一端向另一端搭设，剪刀撑每隔五跨连续设置，可调托撑外露不大于300mm。",
     "立杆垂直度偏差不大于架高的五百分之一，扣件扭矩40至65N·m。", "浇筑时专人监测，沉降达到8mm立即停止并撤离。"},
    {"大体积混凝土", "配合比经试配，入模温度不高于30℃，测温点按方案埋设。",
     "斜面分层、每层不超过500mm，振捣快插慢拔，终凝前二次抹压。", "里表温差不大于25℃，降温速率每天不大于2℃。",
     "泵管固定牢靠，夜间照明充足，专人指挥布料。"},
    {"脚手架工程", "立杆基础硬化并设垫板，连墙件两步三跨，脚手板满铺。",
     "随主体逐层搭设，高出作业面1.5m，剪刀撑自下而上连续。", "验收合格挂牌后使用，每月和大风雨后复查。",
     "拆除自上而下，严禁抛掷，设警戒区并有专人看守。"}};

constexpr std::array People{"demo", "editor", "chenwei", "liuyang"};

/// A document before it has a place on the disk.
struct Draft {
    std::string folderId;
    std::string name;
    std::string content;
    std::vector<std::string> tags;
};

std::vector<std::string> paragraphsOf(const Trade& trade) {
    const std::string name = trade.name;
    return {"【一、概况】",
            "本方案适用于滨江花园一期工程" + name +
                "施工。工程为框架剪力墙结构，地下2层、地上18层，抗震设防烈度7度。施工前由项目技术负责人组织交底，"
                "作业人员签字确认后方可上岗。",
            "【二、施工准备】",
            trade.material,
            "图纸会审完毕，测量控制点已复核并办理移交手续。",
            "【三、操作要点】",
            trade.work,
            "每道工序自检、互检合格后报验，隐蔽部位留存影像资料。",
            "【四、质量要求】",
            trade.check,
            "不合格部位挂牌标识，整改后重新报验。",
            "【五、安全要求】",
            trade.danger,
            "进入现场佩戴安全帽，发现险情立即停止作业，撤离并报告。"};
}

std::string linesOf(const std::string& title, const std::vector<std::string>& paragraphs) {
    std::string text = title + "\r\n";
    for (const std::string& paragraph : paragraphs)
        text += "\r\n" + paragraph;
    return text + "\r\n";
}

/// The text as the system's older programs write it.
std::string encoded(const std::string& text, const char* encoding) {
    UErrorCode error = U_ZERO_ERROR;
    std::string bytes(text.size() * 2 + 4, '\0');
    bytes.resize(
        static_cast<std::size_t>(ucnv_convert(encoding, "UTF-8", bytes.data(), static_cast<std::int32_t>(bytes.size()),
                                              text.data(), static_cast<std::int32_t>(text.size()), &error)));
    if (U_FAILURE(error))
        throw std::runtime_error(std::string("cannot write ") + encoding);
    return bytes;
}

std::vector<Draft> drafts() {
    using drawing::Form;
    std::vector<Draft> all;
    for (std::size_t i = 0; i < std::size(Trades); ++i) {
        const std::string name = Trades[i].name;
        const auto paragraphs = paragraphsOf(Trades[i]);
        const std::vector<std::string> checks{"【主控项目】", Trades[i].check, "【一般项目】", Trades[i].work};
        const std::string text = linesOf(name + "技术交底", paragraphs);
        all.push_back({Schemes, name + "施工方案.pdf", drawing::paper(name + "施工方案", paragraphs), {name, "方案"}});
        all.push_back({Briefings,
                       name + "技术交底.txt",
                       i == 1   ? encoded(text, "gb18030")
                       : i == 2 ? encoded(text, "UTF-16")
                                : text,
                       {name, "交底"}});
        all.push_back({Standards, name + "质量验收要点.pdf", drawing::paper(name + "质量验收要点", checks), {"验收"}});
    }
    for (const char* storey : {"地下一层", "首层", "标准层", "屋面层"}) {
        const std::string title = std::string(storey) + "结构平面图";
        const int columns = 4 + static_cast<int>(all.size() % 4);
        all.push_back({Structure, title + ".pdf", drawing::plan(title, columns, 4, 7200, Form::Pdf), {"平面图"}});
        all.push_back({Photos, title + "（现场标注）.png", drawing::plan(title, columns, 4, 7200, Form::Png), {}});
    }
    for (const double depth : {4.5, 6.5}) {
        const std::string title = "基坑剖面图" + std::string(depth < 5 ? "1-1" : "2-2");
        all.push_back({Pits, title + ".pdf", drawing::pit(title, depth, Form::Pdf), {"剖面图", "重点"}});
        all.push_back({Photos, title + ".png", drawing::pit(title, depth, Form::Png), {"重点"}});
    }
    return all;
}

StoredFile kept(const Draft& draft, const char* username, std::int64_t time, const KeepContent& keep) {
    StoredFile file{
        {DemoDept, newFileUuid()}, draft.name, extensionOf(draft.name), "", std::ssize(draft.content), username, time};
    file.md5 = keep(file.key.uuid, draft.content);
    return file;
}

}  // namespace

std::vector<Document> seedDemoDocuments(IStore& store, std::int64_t now, const KeepContent& keep) {
    const std::vector<Draft> all = drafts();
    std::vector<StoredFile> files;
    const auto timeOf = [now](std::size_t number) { return now - static_cast<std::int64_t>(number + 1) * Day / 4; };
    for (std::size_t i = 0; i < all.size(); ++i)
        files.push_back(kept(all[i], People[i % People.size()], timeOf(i), keep));
    // One that somebody has changed since, and one that is deleted.
    const Trade& changed = Trades[0];
    const std::string title = changed.name + std::string("技术交底");
    auto paragraphs = paragraphsOf(changed);
    paragraphs.push_back("补充：雨后复工前检查边坡和排水，确认无裂缝后方可作业。");
    files.push_back(kept({Briefings, title + ".txt", linesOf(title, paragraphs), {}}, "editor", now, keep));
    const Draft old{
        Schemes, "施工总平面布置（作废）.pdf", drawing::plan("施工总平面布置", 6, 3, 9000, drawing::Form::Pdf), {}};
    files.push_back(kept(old, "demo", now, keep));

    const auto idOf = [](std::size_t number) { return "demo-document-" + std::to_string(number + 1); };
    return changing(store, [&] {
        DocumentFolders folders(store);
        for (const Folder& folder : Folders)
            folders.save(DemoDept, folder.id, folder.name, folder.parentId);
        for (const StoredFile& file : files)
            store.addFile(file);
        std::vector<std::string> ids;
        for (std::size_t i = 0; i < all.size(); ++i) {
            DocumentChange change{all[i].name, all[i].folderId, {}, all[i].tags};
            if (i % 5 != 4)
                change.wovenAt = timeOf(i) - 30 * Day;
            Documents(store, files[i].username, timeOf(i)).save(DemoDept, idOf(i), files[i].key.uuid, change);
            ids.push_back(idOf(i));
        }
        const StoredFile& newer = files[all.size()];
        Documents(store, newer.username, now).save(DemoDept, idOf(1), newer.key.uuid, {});
        const StoredFile& useless = files.back();
        Documents demo(store, useless.username, now);
        demo.save(DemoDept, idOf(all.size()), useless.key.uuid, {old.name, old.folderId, {}, {}});
        demo.remove(DemoDept, {idOf(all.size())}, false);
        return store.documents(DemoDept, ids);
    });
}

}  // namespace disclosure
