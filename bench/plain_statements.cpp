#include "bench/plain_statements.h"

#include <array>
#include <optional>
#include <stdexcept>
#include <utility>

namespace kelvane::bench {

namespace {

// `dialect`: what the component says, '%' standing for a value. `plain`: the same for the engine,
// statements separated by a line break; {n} is the n-th value as a text, {n#} as a number, {n$} as
// an amount is stored.
struct Rule {
    std::string_view dialect;
    std::string_view plain;
};

// Amounts are exact decimal texts with four places; adding them exactly means adding whole numbers.
// Texts are compared the way their indexes are: without letter case and trailing blanks.
constexpr std::array kRules{
    Rule{"select cname, cValue from PM_SettingInf  where cName like 'NumPoint%' ",
         "select cName, cValue from PM_SettingInf where cName like 'NumPoint%'"},
    Rule{"SELECT cValue From AccInformation WHERE cSysID = '%' and cName = '%'",
         "select cValue from AccInformation where rtrim(cSysID) = {1} collate nocase and "
         "rtrim(cName) = {2} collate nocase"},
    Rule{" SELECT * From fitemstructure WHERE (citem_class = '%') AND (iSubItem = '%') AND "
         "(bPrimaryKey = '%')",
         "select * from fitemstructure where rtrim(citem_class) = {1} collate nocase and "
         "iSubItem = {2#} and bPrimaryKey = {3#}"},
    Rule{"select ctext from fitemstructure where cfield_name='%' and citem_class='%'",
         "select ctext from fitemstructure where rtrim(cfield_name) = {1} collate nocase and "
         "rtrim(citem_class) = {2} collate nocase"},
    Rule{"Select distinct iEleVid from PM_ItemQC", "select distinct iEleVid from PM_ItemQC"},
    Rule{"Select sum(mQc) from pm_itemqcsub where iEleVid = '%'",
         "select sum(cast(replace(mQC, '.', '') as integer)) from PM_ItemQCsub where "
         "iEleVid = {1#}"},
    // Nothing is written where nothing changes, as making it durable would be all that counts.
    Rule{"Update PM_ItemQC set mQC = % where iEleVid = '%'",
         "update PM_ItemQC set mQC = {1$} where iEleVid = {2#} and mQC is not {1$}"},
    Rule{"select PM_ItemQC.iEleVid,PM_ItemQC.dDate,PM_ItemQC.cItemCode,fitemss97.citemname,"
         "cKeyCode1,cKeyCode2,cCenterCode,cDigest,cElementCode,mQC from PM_ItemQC inner join "
         "fitemss97 on fitemss97.citemcode = PM_ItemQC.cItemCode order by PM_ItemQC.cItemCode asc",
         "select e.iEleVid, e.dDate, e.cItemCode, i.citemname, e.cKeyCode1, e.cKeyCode2, "
         "e.cCenterCode, e.cDigest, e.cElementCode, e.mQC from PM_ItemQC e join fitemss97 i on "
         "rtrim(i.citemcode) = rtrim(e.cItemCode) collate nocase order by rtrim(e.cItemCode) "
         "collate nocase"},
    Rule{"select cElementName,iElementDetail from PM_ItemElement where cElementCode = '%'",
         "select cElementName, iElementDetail from PM_ItemElement where rtrim(cElementCode) = "
         "{1} collate nocase"},
    Rule{"select iclose,denddate from fitemss97sub where citemcode = '%' and isnull(标段,'') = '%'",
         "select iclose, denddate from fitemss97sub where rtrim(citemcode) = {1} collate nocase "
         "and rtrim(ifnull(标段, '')) = {2} collate nocase"},
    Rule{"select bflag_PM from Gl_mend where iperiod > = '%' and bflag_PM = '%'",
         "select bflag_PM from Gl_mend where iperiod >= {1#} and bflag_PM = {2#}"},
    Rule{"select count(*) from PM_TranControl where  IYear = '%'",
         "select count(*) from PM_TranControl where IYear = {1#}"},

    Rule{"select cCenterCode from PM_DutyCenter where cCenterCode = '%'",
         "select cCenterCode from PM_DutyCenter where rtrim(cCenterCode) = {1} collate nocase"},
    Rule{"select PM_DutycenterSub.cItemCode,Fitemss97.citemname from PM_DutycenterSub inner join "
         "Fitemss97 on PM_DutycenterSub.cItemCode = Fitemss97.citemcode  where cCenterCode = '%'",
         "select d.cItemCode, i.citemname from PM_DutycenterSub d join fitemss97 i on "
         "rtrim(i.citemcode) = rtrim(d.cItemCode) collate nocase where rtrim(d.cCenterCode) = "
         "{1} collate nocase"},
    Rule{"select cElementCode from PM_ItemElement where cElementName = '%'",
         "select cElementCode from PM_ItemElement where rtrim(cElementName) = {1} collate "
         "nocase"},
    Rule{"select iBudget,iMoneysum from pm_budget where iVerID=(select iverid from pm_BudgetVer "
         "where bControl=1) and citemCode='%' and cElementCode='%'",
         "select iBudget, iMoneysum from pm_budget where iVerID = (select iverid from "
         "pm_BudgetVer where bControl = 1) and rtrim(citemCode) = {1} collate nocase and "
         "rtrim(cElementCode) = {2} collate nocase"},
    Rule{"select sum(mQc) as sumQC from pm_itemqc where citemcode='%' and celementcode='%' and "
         "iEleVid<>%",
         "select sum(cast(replace(mQC, '.', '') as integer)) from PM_ItemQC where "
         "rtrim(cItemCode) = {1} collate nocase and rtrim(cElementCode) = {2} collate nocase "
         "and iEleVid <> {3#}"},
    // A row that is read to be saved opens the transaction that saves it.
    Rule{"select * from PM_ItemQC with (HOLDLOCK) where iEleVid=%",
         "begin immediate\nselect * from PM_ItemQC where iEleVid = {1#}"},
    Rule{"select cValue from PM_SettingInf where cName='%'",
         "begin immediate\n"
         "select cValue from PM_SettingInf where rtrim(cName) = {1} collate nocase\n"
         "update PM_SettingInf set cValue = cast(cast(cValue as integer) + 1 as text) where "
         "rtrim(cName) = {1} collate nocase\n"
         "commit"},
    Rule{"save % as %|%|%|%|%|%|%|%",
         "update PM_ItemQC set dDate = {2} || ' 00:00:00.000', cCenterCode = {3}, cItemCode = {4}, "
         "cKeyCode1 = {5}, cKeyCode2 = {6}, cElementCode = {7}, cDigest = {8}, mQC = {9$} where "
         "iEleVid = {1#}\n"
         "commit"},
    // The identity is the one that the counter has reached by then.
    Rule{"insert into PM_ItemQC(dDate,cCenterCode,cItemCode,cKeyCode1,cKeyCode2,cElementCode,"
         "cDigest,mQC,iEleVid) values ( '%','%','%','%','%','%','%',%,%) ",
         "begin immediate\n"
         "insert into PM_ItemQC(dDate, cCenterCode, cItemCode, cKeyCode1, cKeyCode2, cElementCode, "
         "cDigest, mQC, iEleVid) values ({1} || ' 00:00:00.000', {2}, {3}, {4}, {5}, {6}, "
         "{7}, {8$}, (select cast(cValue as integer) from PM_SettingInf where rtrim(cName) = "
         "'NumMax_EleQc' collate nocase))\n"
         "commit"},

    // Detail lines.
    Rule{"select a.cInvCode,a.cInvName,a.cInvStd,b.cComUnitName,c.iuprice,c.iNum,c.mQC from "
         "inventory a left join computationUnit b on a.cSAComUnitCode=b.cComUnitCode inner join "
         "pm_itemQCSub c on a.cInvCode=c.cCodeMx and c.iEleVid=%",
         "select a.cInvCode, a.cInvName, a.cInvStd, b.cComUnitName, c.iUprice, c.iNum, c.mQC from "
         "PM_ItemQCsub c join inventory a on rtrim(a.cInvCode) = rtrim(c.cCodeMx) collate nocase "
         "left join computationunit b on rtrim(b.cComUnitCode) = rtrim(a.cSAComUnitCode) collate "
         "nocase where c.iEleVid = {1#}"},
    Rule{"select cInvCCode from pm_itemelement where cElementName='%'",
         "select cInvCCode from PM_ItemElement where rtrim(cElementName) = {1} collate nocase"},
    Rule{"select a.cInvCode,a.cInvName,a.cInvStd,a.iInvRCost,b.cComUnitName from inventory a left "
         "join computationunit b on a.cSAComUnitCode=b.cComUnitCode where a.cInvCode='%' and "
         "a.cInvCCode like '%'",
         "select a.cInvCode, a.cInvName, a.cInvStd, a.iInvRCost, b.cComUnitName from inventory a "
         "left join computationunit b on rtrim(b.cComUnitCode) = rtrim(a.cSAComUnitCode) collate "
         "nocase where rtrim(a.cInvCode) = {1} collate nocase and a.cInvCCode like {2}"},
    Rule{"select iBudget,imoneysum,inumberSum from pm_budgetsub where iVerID=(select iverid from "
         "pm_BudgetVer where bControl=1) and citemCode='%' and cElementCode='%'and cCodeMx='%'",
         "select iBudget, imoneysum, inumberSum from pm_budgetsub where iVerID = (select iverid "
         "from pm_BudgetVer where bControl = 1) and rtrim(citemCode) = {1} collate nocase and "
         "rtrim(cElementCode) = {2} collate nocase and rtrim(cCodeMx) = {3} collate nocase"},
    Rule{"delete from PM_ItemQCsub where iEleVid=%",
         "delete from PM_ItemQCsub where iEleVid = {1#}"},
    Rule{"insert into PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) values(%,'%',%,%,%)",
         "insert into PM_ItemQCsub(iEleVid, cCodeMx, iUprice, iNum, mQC) values ({1#}, {2}, {3$}, "
         "{4#}, {5$})"},
};

// In a batch; what is not here is as above.
constexpr std::array kBatchRules{
    Rule{"select cValue from PM_SettingInf where cName='%'",
         "select cValue from PM_SettingInf where rtrim(cName) = {1} collate nocase"},
    Rule{"select cElementCode,iElementDetail from PM_ItemElement where cElementName ='%'",
         "select cElementCode, iElementDetail from PM_ItemElement where rtrim(cElementName) = {1} "
         "collate nocase"},
    Rule{"select cKeyWord1,cKeyWord2 from PM_DutycenterSub where cCenterCode='%' and cItemCode='%'",
         "select cKeyWord1, cKeyWord2 from PM_DutycenterSub where rtrim(cCenterCode) = {1} collate "
         "nocase and rtrim(cItemCode) = {2} collate nocase"},
    Rule{"insert into PM_ItemQC(dDate,cCenterCode,cItemCode,cKeyCode1,cKeyCode2,cElementCode,"
         "cDigest,mQC,iEleVid) values ( '%','%','%','%','%','%','%',%,%) ",
         "insert into PM_ItemQC(dDate, cCenterCode, cItemCode, cKeyCode1, cKeyCode2, cElementCode, "
         "cDigest, mQC, iEleVid) values ({1} || ' 00:00:00.000', {2}, {3}, {4}, {5}, {6}, {7}, "
         "{8$}, {9#})"},
};

// Statements of one rule at most.
constexpr std::size_t kMaxParts = 4;

using Values = std::vector<std::string>;

// The values in `text` where `pattern` has a '%', if the rest is the same.
std::optional<Values> Match(std::string_view pattern, std::string_view text) {
    Values values;
    for (;;) {
        const std::size_t gap = pattern.find('%');
        const std::string_view fixed = pattern.substr(0, gap);
        if (!text.starts_with(fixed)) return {};
        text.remove_prefix(fixed.size());
        if (gap == std::string_view::npos) {
            if (!text.empty()) return {};
            return values;
        }
        pattern.remove_prefix(gap + 1);
        const std::size_t end =
            pattern.empty() ? text.size() : text.find(pattern.substr(0, pattern.find('%')));
        if (end == std::string_view::npos) return {};
        values.emplace_back(text.substr(0, end));
        text.remove_prefix(end);
    }
}

std::string StoredAmount(std::string amount) {
    std::size_t point = amount.find('.');
    if (point == std::string::npos) {
        point = amount.size();
        amount += '.';
    }
    amount.resize(point + 5, '0');
    return amount;
}

std::string Quoted(const std::string& text) {
    return "'" + text + "'";
}

// One statement of a rule's plain side.
PlainStatement Filled(std::string_view plain, const Values& values) {
    PlainStatement statement;
    for (;;) {
        const std::size_t open = plain.find('{');
        statement.text += plain.substr(0, open);
        statement.shape += plain.substr(0, open);
        if (open == std::string_view::npos) return statement;
        const std::string& value = values.at(static_cast<std::size_t>(plain[open + 1] - '1'));
        const char form = plain[open + 2];
        const bool isNumber = form == '#';
        statement.values.push_back({form == '$' ? StoredAmount(value) : value, isNumber});
        const std::string& text = statement.values.back().text;
        statement.text += isNumber ? text : Quoted(text);
        statement.shape += '?' + std::to_string(statement.values.size());
        plain.remove_prefix(open + (form == '}' ? 3 : 4));
    }
}

// The rules in the order in which they are tried; their numbers stay.
std::vector<std::pair<std::size_t, const Rule*>> RulesFor(bool batch) {
    std::vector<std::pair<std::size_t, const Rule*>> rules;
    for (std::size_t i = 0; batch && i < kBatchRules.size(); ++i) {
        rules.emplace_back(kRules.size() + i, &kBatchRules[i]);
    }
    for (std::size_t i = 0; i < kRules.size(); ++i) rules.emplace_back(i, &kRules[i]);
    return rules;
}

void AddPlain(std::vector<PlainStatement>& statements, std::string_view noted, bool batch) {
    const std::size_t blank = noted.find(' ');
    const Path path = noted.substr(0, blank) == "gEnv" ? Path::Environment : Path::Connection;
    const std::string_view statement = noted.substr(blank + 1);
    for (const auto& [number, rule] : RulesFor(batch)) {
        const auto values = Match(rule->dialect, statement);
        if (!values) continue;
        std::string_view plain = rule->plain;
        for (std::size_t part = 0;; ++part) {
            const std::size_t end = plain.find('\n');
            PlainStatement& added = statements.emplace_back(Filled(plain.substr(0, end), *values));
            added.path = path;
            added.shapeNumber = kMaxParts * number + part;
            if (end == std::string_view::npos) return;
            plain.remove_prefix(end + 1);
        }
    }
    throw std::runtime_error("no plain statement for: " + std::string(statement));
}

std::vector<PlainStatement> AllPlain(const std::vector<std::string>& noted, bool batch) {
    // Where an entry's script goes on with its next line.
    static constexpr std::string_view kNextLine = " insert into PM_ItemQCsub(";
    std::vector<PlainStatement> statements;
    for (const std::string_view line : noted) {
        const std::string path(line.substr(0, line.find(' ')));
        std::size_t end = line.find(kNextLine);
        AddPlain(statements, line.substr(0, end), batch);
        while (end != std::string_view::npos) {
            const std::size_t start = end;
            end = line.find(kNextLine, start + 1);
            AddPlain(statements, path + std::string(line.substr(start, end - start)), batch);
        }
    }
    return statements;
}

}  // namespace

std::vector<PlainStatement> PlainStatementsOf(const std::vector<std::string>& noted) {
    return AllPlain(noted, false);
}

std::vector<PlainStatement> PlainBatchOf(const std::vector<std::string>& noted) {
    return AllPlain(noted, true);
}

PlainStatement EngineStatement(std::string text, std::size_t number) {
    PlainStatement statement;
    statement.text = statement.shape = std::move(text);
    statement.shapeNumber = kMaxParts * (kRules.size() + kBatchRules.size() + number);
    return statement;
}

std::string SavingNote(std::int64_t identity, const std::vector<std::string>& fields) {
    std::string note = "gConn save " + std::to_string(identity) + " as ";
    for (const std::string& field : fields) {
        if (&field != &fields.front()) note += '|';
        note += field;
    }
    return note;
}

}  // namespace kelvane::bench
