#include "tessaron/reports/report.h"

#include <cstdlib>
#include <string_view>

#include "tessaron/foundation/enumerations.h"
#include "tessaron/foundation/error_numbers.h"
#include "tessaron/foundation/values.h"
#include "tessaron/messaging/xml_bldr.h"
#include "tessaron/platform/error.h"
#include "tessaron/platform/text.h"

namespace tessaron {
namespace {

// Options that came with qbXML 3.0: DisplayReport and the detail level and posting status
// filters.
const Currency kVersion3 = Currency(3);

// Without a choice, custom reports are summarised by account.
constexpr int32_t kDefaultSummarizeRowsBy = qbRptColSortAccount;

constexpr int32_t kCustomDetailDefaultColumns[] = {
    qbFldTxnType, qbFldDate,    qbFldTxnNumber,     qbFldName,         qbFldMemo,   qbFldAccount,
    qbFldClass,   qbFldClearedStatus, qbFldSplitAccount, qbFldDebit, qbFldCredit, qbFldOpenBalance};

// The reports whose rows carry full names ("Customer:Job") and are indented by them.
bool IndentsByNamePath(int32_t baseReport) {
  return baseReport == qbRptCheckDetail || baseReport == qbRptJournal || baseReport == qbRptTxnListByCustomer ||
         baseReport == qbRptTxnListByDate || baseReport == qbRptTxnListByVendor;
}

void WriteEnum(xmlBldr& b, std::string_view tag, int32_t code, qoEnumerationType table, Currency minVersion = 0) {
  if (code != 0) b.CreateElement(tag, EnumCodeToXML(code, table), minVersion);
}

const char* ReturnRowColText(int32_t v) {
  switch (v) {
    case qbReportReturnActiveOnly: return "ActiveOnly";
    case qbReportReturnNonZero: return "NonZero";
    case qbReportReturnAll: return "All";
    default: return "";
  }
}

int32_t ReturnRowColCode(std::string_view text) {
  if (text == "ActiveOnly") return qbReportReturnActiveOnly;
  if (text == "NonZero") return qbReportReturnNonZero;
  if (text == "All") return qbReportReturnAll;
  return 0;
}

// The first element of the answer: the report's response element.
XmlNode ResponseElement(const XmlDocument& doc) {
  if (doc.IsNull()) return XmlNode();
  XmlNode root = doc.documentElement();
  if (root.IsNull()) return XmlNode();
  XmlNode msgs = root.child("QBXMLMsgsRs");
  if (msgs.IsNull()) return XmlNode();
  for (XmlNode n = msgs.firstChild(); !n.IsNull(); n = n.nextSibling())
    if (n.nodeType() == XmlNodeType::Element) return n;
  return XmlNode();
}

std::string Attribute(const XmlNode& element, std::string_view name) {
  XmlNode a = element.attributes().getNamedItem(name);
  return a.IsNull() ? std::string() : a.text();
}

struct Period {
  Date start, end;
};

Date SundayOf(Date d) { return d - (Weekday(d) - 1); }
Date MonthStart(Date d) {
  DateParts p = SplitDate(d);
  return DateSerial(p.year, p.month, 1);
}
Date QuarterStart(Date d) {
  DateParts p = SplitDate(d);
  return DateSerial(p.year, (p.month - 1) / 3 * 3 + 1, 1);
}
Date YearStart(Date d) { return DateSerial(SplitDate(d).year, 1, 1); }

// The period of a date macro around today. Months and quarters run from their first day
// to the day before the next one starts.
Period PeriodOf(int32_t macro, Date today) {
  const Date sunday = SundayOf(today);
  const Date month = MonthStart(today), quarter = QuarterStart(today), year = YearStart(today);
  switch (macro) {
    case 2: return {today, today};
    case 3: return {sunday, sunday + 6};
    case 4: return {sunday, today};
    case 5: return {month, AddMonths(month, 1) - 1};
    case 6: return {month, today};
    case 7: return {quarter, AddMonths(quarter, 3) - 1};
    case 8: return {quarter, today};
    case 9: return {year, AddMonths(year, 12) - 1};
    case 10: return {year, today};
    case 11: return {today - 1, today - 1};
    case 12: return {sunday - 7, sunday - 1};
    case 13: return {sunday - 7, today - 7};
    case 14: return {AddMonths(month, -1), month - 1};
    case 15: return {AddMonths(month, -1), AddMonths(today, -1)};
    case 16: return {AddMonths(quarter, -3), quarter - 1};
    case 17: return {AddMonths(quarter, -3), AddMonths(today, -3)};
    case 18: return {AddMonths(year, -12), year - 1};
    case 19: return {AddMonths(year, -12), AddMonths(today, -12)};
    case 20: return {sunday + 7, sunday + 13};
    case 21: return {sunday + 7, sunday + 34};
    case 22: return {AddMonths(month, 1), AddMonths(month, 2) - 1};
    case 23: return {AddMonths(quarter, 3), AddMonths(quarter, 6) - 1};
    case 24: return {AddMonths(year, 12), AddMonths(year, 24) - 1};
    default: return {0, 0};
  }
}

}  // namespace

Report::Report() : filters_(std::make_shared<rptFilters>()) {}

void Report::SetBasis(const std::string& v) {
  const std::string upper = FoldCase(v);  // folding to lower case compares the same
  if (upper == "cash") basis_ = "Cash";
  else if (upper == "accrual") basis_ = "Accrual";
  else if (v.empty() || v == "None") basis_.clear();
  else throw Error(err::kInvalidBasis, "tessaron", err::kInvalidBasisText);
}

void Report::SetDateMacro(int32_t v) {
  dateMacro_ = v;
  if (v <= 1 || v >= qbRptDateMacroCustom) return;
  const Period p = PeriodOf(v, DateOnly(Today()));
  startDate_ = p.start;
  endDate_ = p.end;
}

std::string Report::SaveToXml() {
  reportRows_.Clear();
  if (baseReport_ == 0) throw Error(err::kInvalidBaseReport, "tessaron:Report", err::kInvalidBaseReportText);
  auto d = ReportDescriptor(baseReport_);
  const std::string prefix = ReportTypePrefix(d->ReportType());
  const std::string aggregate = prefix + "ReportQueryRq";

  xmlBldr b;
  b.OpenAggregateOnly(aggregate);
  b.CreateElement(prefix + "ReportType", d->RequestName());
  // Showing the report in QuickBooks came with qbXML 3.0; below it the data is answered.
  if (displayReport_) b.CreateElement("DisplayReport", "true", kVersion3);

  if (d->ReportType() == ReportTypeBudget) {
    // Budgets are asked by fiscal year alone: no period, no filters beyond these.
    b.CreateElement("FiscalYear", budgetFiscalYear_ ? std::to_string(budgetFiscalYear_) : std::string("2003"));
    WriteEnum(b, "BudgetCriterion", budgetCriterion_, qoeReportBudgetCriterion);
    WriteEnum(b, "SummarizeBudgetColumnsBy", budgetColumnsBy_, qoeReportBudgetSumColsByEnum);
    WriteEnum(b, "SummarizeBudgetRowsBy", budgetRowsBy_, qoeReportBudgetSumRowsByEnum);
    b.EndAggregate(aggregate);
    return b.GetXML().ToString();
  }

  if (!d->NoDateAllowed()) {
    if (dateMacro_ == qbRptDateMacroCustom) {
      b.OpenAggregateOnly("ReportPeriod");
      b.CreateElement("FromReportDate", DateToText(startDate_));
      b.CreateElement("ToReportDate", DateToText(endDate_));
      b.EndAggregate("ReportPeriod");
    } else if (dateMacro_ > 0) {
      b.CreateElement("ReportDateMacro", EnumCodeToXML(dateMacro_, qoeReportDateMacro));
    }
  }
  if (filters_) filters_->Write(b);
  WriteEnum(b, "ReportDetailLevelFilter", detailLevel_, qoeReportDetailLevelFilterEnum, kVersion3);

  switch (d->ReportType()) {
    case ReportTypePayrollDetail:
    case ReportTypeAging:
    case ReportTypeCustomDetail:
    case ReportTypeGeneralDetail:
    case ReportTypeCustomSummary: WriteLongBranch(b, *d); break;
    default: WriteSummaryOptions(b, *d); break;
  }

  const auto type = d->ReportType();
  if (!basis_.empty() && type != ReportTypePayrollSummary && type != ReportTypePayrollDetail &&
      type != ReportTypeAging)
    b.CreateElement("ReportBasis", basis_);
  b.EndAggregate(aggregate);
  return b.GetXML().ToString();
}

void Report::WriteLongBranch(xmlBldr& b, const rptDescriptor& d) {
  const auto type = d.ReportType();
  WriteEnum(b, "ReportPostingStatusFilter", postingStatus_, qoeReportPostingStatusFilter, kVersion3);

  if (type == ReportTypeCustomSummary && summarizeColumnsBy_ == 0) summarizeColumnsBy_ = qbRptColSortTotalOnly;
  WriteEnum(b, "SummarizeColumnsBy", summarizeColumnsBy_, qoeReportColSortFields);

  // A custom summary is always summarised by the default; a choice made for it is dropped.
  if (type == ReportTypeCustomSummary) summarizeRowsBy_ = 0;
  if (summarizeRowsBy_ != 0)
    WriteEnum(b, "SummarizeRowsBy", summarizeRowsBy_, qoeReportColSortFields);
  else if (type == ReportTypeCustomDetail || type == ReportTypeCustomSummary)
    WriteEnum(b, "SummarizeRowsBy", kDefaultSummarizeRowsBy, qoeReportColSortFields);

  if (type == ReportTypeCustomDetail && !columnHeaders_.UserSet()) {
    columnHeaders_.Clear();
    for (int32_t field : kCustomDetailDefaultColumns) columnHeaders_.Add(field);
  }
  // Headers read from an answer describe that answer; only chosen columns are asked for.
  if (columnHeaders_.UserSet() || type == ReportTypeCustomDetail)
    for (const auto& h : columnHeaders_)
      if (h->Field() != 0) b.CreateElement("IncludeColumn", EnumCodeToXML(h->Field(), qoeReportField));

  if (inUseAccountsOnly_) b.CreateElement("IncludeAccounts", "InUse");
  if (balanceAsOfEnd_) b.CreateElement("ReportOpenBalanceAsOf", "ReportEndDate");
}

void Report::WriteSummaryOptions(xmlBldr& b, const rptDescriptor& d) {
  WriteEnum(b, "SummarizeColumnsBy", summarizeColumnsBy_, qoeReportColSortFields);
  if (includeSubColumns_) b.CreateElement("IncludeSubcolumns", "true");
  if (!d.NoCalendarAllowed()) WriteEnum(b, "ReportCalendar", reportCalendar_, qoeReportCalendar);
  if (returnRows_ != 0) b.CreateElement("ReturnRows", ReturnRowColText(returnRows_));
  if (returnColumns_ != 0) b.CreateElement("ReturnCols", ReturnRowColText(returnColumns_));
}

int32_t Report::Refresh() {
  bool retried = false;
  for (;;) {
    xmlBldr b;
    b.NewClear();
    b.InsertRawXML(SaveToXml());
    XmlDocument doc = b.NewSendRequest();
    if (displayReport_) return b.ErrNumber();

    XmlNode response = ResponseElement(doc);
    // An answer that did not parse (cut short, not XML) leaves the document empty: there is
    // no status to read, as there is no response element to read it from.
    if (response.IsNull()) {
      Indent();
      RaisePlatform(platform_error::kObjectNotSet, "Tessaron:Reports");
    }
    const std::string codeText = Attribute(response, "statusCode");
    if (codeText == "0" || codeText.empty()) {
      if (!response.IsNull() && response.hasChildNodes()) FromDom(response);
      Indent();
      return 0;
    }
    const int32_t code = static_cast<int32_t>(std::strtol(codeText.c_str(), nullptr, 10));
    const std::string message = Attribute(response, "statusMessage");
    // 3151: the report does not take an option. The option named in the message (or else
    // the basis) is dropped for good and the request asked once more.
    if (code == 3151 && !retried) {
      if (message.find("ReturnRows") != std::string::npos) returnRows_ = 0;
      else basis_.clear();
      retried = true;
      continue;
    }
    Indent();
    throw Error(code, "Tessaron:Reports", message);
  }
}

void Report::Indent() { IndentRows(reportRows_, IndentsByNamePath(baseReport_)); }

void Report::FromDom(const XmlNode& obj) {
  responseName_ = std::string(obj.baseName());
  columnHeaders_.Clear();
  if (!obj.hasChildNodes()) return;
  XmlNode report = obj.firstChild();
  for (const XmlNode& child : report.childNodes()) {
    const std::string_view name = child.baseName();
    if (name == "ReportTitle") title_ = child.text();
    else if (name == "ReportSubtitle") subtitle_ = child.text();
    else if (name == "ReportBasis") SetBasis(child.text());
    else if (name == "NumRows") maxRows_ = static_cast<int32_t>(Variant(child.text()).ToInteger());
    else if (name == "NumColumns") maxColumns_ = static_cast<int32_t>(Variant(child.text()).ToInteger());
    else if (name == "NumColTitleRows") columnTitleRows_ = static_cast<int32_t>(Variant(child.text()).ToInteger());
    else if (name == "ColDesc") columnHeaders_.AddByID(0, 0)->FromDom(child);
    else if (name == "ReportData") {
      for (const XmlNode& rowNode : child.childNodes()) {
        if (rowNode.nodeType() != XmlNodeType::Element) continue;
        auto row = reportRows_.Add();
        row->FromDom(rowNode);
        row->SetCollectionIndex(static_cast<int32_t>(reportRows_.Count()));
      }
    }
  }
}

Variant Report::LoadFromXml(const std::string& XMLString) {
  XmlDocument doc = XmlDocument::Create();
  doc.loadXML(XMLString);
  if (!filters_) filters_ = std::make_shared<rptFilters>();
  filters_->Clear();
  XmlNode root = doc.documentElement();
  if (root.IsNull()) return Variant();
  // The saved form is the request aggregate itself; a document that wraps it (a message
  // set) holds it as its first child.
  if (EndsWith(root.baseName(), "ReportQueryRq")) FromDomString(root);
  else if (!root.firstChild().IsNull() && root.firstChild().hasChildNodes()) FromDomString(root.firstChild());
  return Variant();
}

void Report::FromDomString(const XmlNode& obj) {
  if (!obj.hasChildNodes()) return;
  if (!filters_) filters_ = std::make_shared<rptFilters>();
  columnHeaders_.Clear();
  for (const XmlNode& child : obj.childNodes()) {
    const std::string_view name = child.baseName();
    const std::string text = child.text();
    if (name == "ReportDateMacro") {
      dateMacro_ = EnumXMLToCode(text, qoeReportDateMacro);
    } else if (EndsWith(name, "ReportType")) {
      const rptDescriptor* d = FindReportByRequestName(text);
      baseReport_ = d ? d->Code() : 0;
    } else if (name == "ReportPeriod") {
      startDate_ = DateFromText(child.childNodes().item(0).text());
      endDate_ = DateFromText(child.childNodes().item(1).text());
      dateMacro_ = qbRptDateMacroCustom;
    } else if (name == "ReportAccountFilter") {
      filters_->AccountFilter()->FromDom(child);
    } else if (name == "ReportEntityFilter") {
      filters_->EntityFilter()->FromDom(child);
    } else if (name == "ReportItemFilter") {
      filters_->ItemFilter()->FromDom(child);
    } else if (name == "ReportClassFilter") {
      filters_->ClassFilter()->FromDom(child);
    } else if (name == "ReportTxnTypeFilter") {
      filters_->TxnTypes()->FromDom(child);
    } else if (name == "SummarizeRowsBy") {
      summarizeRowsBy_ = EnumXMLToCode(text, qoeReportColSortFields);
    } else if (name == "IncludeColumn") {
      columnHeaders_.Add(EnumXMLToCode(text, qoeReportField));
      columnHeaders_.SetUserSet(true);
    } else if (name == "IncludeAccounts") {
      // Only "InUse" is ever written, and it reads back as the opposite flag.
      inUseAccountsOnly_ = false;
    } else if (name == "ReportOpenBalanceAsOf") {
      balanceAsOfEnd_ = text != "Today";
    } else if (name == "SummarizeColumnsBy") {
      summarizeColumnsBy_ = EnumXMLToCode(text, qoeReportColSortFields);
    } else if (name == "ReturnRows") {
      returnRows_ = ReturnRowColCode(text);
    } else if (name == "ReportBasis") {
      basis_ = text;
    } else if (name == "ReportPostingStatusFilter") {
      postingStatus_ = EnumXMLToCode(text, qoeReportPostingStatusFilter);
    } else {
      throw Error(err::kInternal, "Tessaron: Report",
                  "Report.FromDOMString:  Unknow field:  " + std::string(name));
    }
  }
}

}  // namespace tessaron
