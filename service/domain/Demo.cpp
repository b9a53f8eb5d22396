#include "service/domain/Demo.h"

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "service/domain/Catalogs.h"
#include "service/ports/Changing.h"

namespace disclosure {

namespace {

constexpr auto Organisation = "demo-org";
constexpr auto SecondDept = "demo-dept-2";
constexpr auto NextDept = "demo-dept-3";

struct Folder {
    const char* name;
    std::vector<Folder> children;
};

const Folder Site{"全部",
                  {{"土建工程",
                    {{"基础工程", {{"土方开挖", {}}, {"桩基施工", {}}, {"地下防水", {}}}},
                     {"钢筋工程", {{"梁板钢筋", {}}, {"剪力墙钢筋", {}}, {"柱钢筋", {}}}},
                     {"模板工程", {{"高支模", {}}, {"铝合金模板", {}}}},
                     {"混凝土工程", {{"大体积混凝土", {}}}},
                     {"砌体工程", {}}}},
                   {"机电安装", {{"给排水工程", {}}, {"通风与空调", {}}, {"建筑电气", {}}, {"消防工程", {}}}},
                   {"装饰装修", {{"外墙保温", {}}, {"幕墙工程", {}}, {"室内抹灰", {}}}},
                   {"安全文明施工", {{"脚手架工程", {}}, {"塔式起重机", {}}, {"临时用电", {}}}}}};

struct Member {
    const char* username;  // the password too
    const char* realname;
    const char* deptId;
    Rights rights;
};

void seedCatalogs(Catalogs& catalogs, const Folder& folder, const std::string& parentId, int& number) {
    const std::string id = "demo-catalog-" + std::to_string(++number);
    catalogs.save(DemoDept, id, folder.name, parentId);
    for (const Folder& child : folder.children)
        seedCatalogs(catalogs, child, id, number);
}

}  // namespace

bool seedDemo(IStore& store, const Passwords& passwords) {
    const Rights all{Right::EditCatalogs, Right::EditTasks, Right::DeleteTasks};
    const Rights edit{Right::EditCatalogs, Right::EditTasks};
    const std::vector<Member> members{
        {"demo", "张建国", DemoDept, all},   {"editor", "李明", DemoDept, edit},  {"reader", "王芳", DemoDept, {}},
        {"chenwei", "陈伟", DemoDept, {}},   {"liuyang", "刘洋", DemoDept, {}},   {"sunli", "孙丽", DemoDept, {}},
        {"second", "赵磊", SecondDept, all}, {"zhoujie", "周洁", SecondDept, {}},
    };

    return changing(store, [&] {
        if (!store.department(Organisation)) {
            // Their passwords are known to everybody.
            if (store.hasDepartments())
                throw std::invalid_argument(
                    "the database holds others' departments; the demonstration needs one of its own");
            store.putDepartment({Organisation, "示范建设集团", ""});
            store.putDepartment({DemoDept, "第一项目部", Organisation});
            store.putDepartment({SecondDept, "第二项目部", Organisation});
            store.putProject({1001, "滨江花园一期工程", DemoDept});
            store.putProject({1002, "科技园综合楼工程", SecondDept});
            store.putDepartment({NextDept, "第三项目部", Organisation});
            store.putProject({1003, "滨江花园二期工程", NextDept});
        }
        for (const Member& member : members) {
            if (store.person(member.username))
                continue;
            store.putPerson({member.username, member.realname, "", member.deptId, passwords.hash(member.username),
                             member.username + std::string("@demo.example")});
            store.putMember(member.deptId, member.username);
            store.putRights(member.deptId, member.username, member.rights);
            if (member.username == std::string_view("demo")) {  // has two projects to go to and fro
                store.putMember(NextDept, member.username);
                store.putRights(NextDept, member.username, member.rights);
            }
        }
        const bool isNew = !store.hasTopCatalog(DemoDept);
        if (isNew) {
            Catalogs catalogs(store);
            int number = 0;
            seedCatalogs(catalogs, Site, "", number);
        }
        return isNew;
    });
}

}  // namespace disclosure
