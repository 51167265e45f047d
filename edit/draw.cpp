#include <curses.h>

#include <string>

#include "edit/view.h"

namespace {

const int kMinWidth = 80, kMinHeight = 24;

// Puts text at y, x, cut to width columns and padded with blanks; control
// characters show as '?'.
void Put(int y, int x, int width, const std::string& text, int attr = 0) {
  if (width <= 0) return;
  std::string shown = text.substr(0, static_cast<size_t>(width));
  for (char& c : shown)
    if (static_cast<unsigned char>(c) < 32 || c == 127) c = '?';
  shown.resize(static_cast<size_t>(width), ' ');
  attron(attr);
  mvaddnstr(y, x, shown.c_str(), width);
  attroff(attr);
}

std::string Count(long n, const char* one, const char* many) {
  return std::to_string(n) + " " + (n == 1 ? one : many);
}

}  // namespace

void tEditView::Draw() {
  erase();
  curs_set(0);
  if (COLS < kMinWidth || LINES < kMinHeight) {
    Put(0, 0, COLS,
        "The terminal is too small: " + std::to_string(COLS) + "x" + std::to_string(LINES) + ".");
    Put(1, 0, COLS, "ruleforge-edit needs 80x24.");
    Put(2, 0, COLS, "Make it larger, or press q to quit.");
    refresh();
    return;
  }
  if (Mode == Paging) return DrawPage();
  int left = 26;
  std::string title = " ruleforge-edit  " + FileName;
  if (Model.Edits != SavedEdits) title += "  (unsaved changes)";
  Put(0, 0, COLS, title, Screen->TitleAttr);
  DrawSets(1, 7, left);
  DrawClauses(7, LINES - 2, left - 1);
  for (int y = 1; y < LINES - 2; ++y) mvaddch(y, left, '|');
  int middle = 1 + (LINES - 3) * 3 / 5;
  DrawClause(1, middle, left + 3, COLS - left - 3);
  DrawPreview(middle, LINES - 2, left + 3, COLS - left - 3);
  DrawBottom();
  refresh();
}

void tEditView::DrawSets(int top, int bottom, int width) {
  Put(top, 0, width, "Data sets", Screen->HeadAttr);
  int height = bottom - top - 1;
  Scroll(SetIndex, height, SetTop);
  for (int i = 0; i < height && SetTop + i < Document.DataSets.Size(); ++i) {
    int index = SetTop + i;
    DListtClauseData& set = *static_cast<DListtClauseData*>(Document.DataSets[index]);
    bool selected = index == SetIndex;
    Put(top + 1 + i, 0, width, std::string(selected ? "> " : "  ") + set.Name(nullptr).Text(),
        selected && Focus == SetsPane ? Screen->SelectedAttr : 0);
  }
}

void tEditView::DrawClauses(int top, int bottom, int width) {
  Put(top, 0, width, "Clauses", Screen->HeadAttr);
  int height = bottom - top - 1;
  Scroll(ClauseIndex, height, ClauseTop);
  for (int i = 0; i < height && ClauseTop + i < static_cast<int>(Clauses.size()); ++i) {
    int index = ClauseTop + i;
    const tClauseRow& row = Clauses[index];
    std::string mark = "  ", count;
    if (row.Record) {
      const tClauseData* part = row.Record;
      long entries = 0;
      for (int p = 0; p < 2 && part; ++p, part = part->Partner) {
        for (int v = 0; v < 4; ++v)
          if (part->Check(v)) mark = "* ";
        entries += part->Values0.Size() + part->Values1.Size();
      }
      count = std::to_string(entries);
      for (const tDataFinding& finding : Check.Items)
        if (finding.Set == SetIndex && finding.Record == row.RecordIndex) count += "!";
    } else {
      mark = "- ";
    }
    std::string name = row.Template->Name.Text();
    int room = width - 2 - static_cast<int>(mark.size()) - static_cast<int>(count.size()) - 1;
    if (static_cast<int>(name.size()) > room) name.resize(room > 0 ? room : 0);
    name.resize(room > 0 ? room : 0, ' ');
    bool selected = index == ClauseIndex;
    Put(top + 1 + i, 0, width, (selected ? "> " : "  ") + mark + name + " " + count,
        selected && Focus == ClausesPane ? Screen->SelectedAttr : 0);
  }
}

void tEditView::DrawClause(int top, int bottom, int left, int width) {
  const tClauseRow* clause = CurrentClause();
  std::string head = clause ? std::string(clause->Record ? "Clause: " : "Fixed clause: ") +
                                  clause->Template->Name.Text()
                            : "No clauses in this data set";
  Put(top, left, width, head, Screen->HeadAttr);
  int height = bottom - top - 1;
  Scroll(Row, height, RowTop);
  for (int i = 0; i < height && RowTop + i < static_cast<int>(Items.size()); ++i) {
    int index = RowTop + i;
    bool selected = index == Row;
    Put(top + 1 + i, left - 2, 2, selected ? "> " : "  ");
    DrawItem(Items[index], top + 1 + i, left, width);
    if (selected && Focus == ClausePane) mvchgat(top + 1 + i, left, width, A_REVERSE, 0, nullptr);
  }
}

void tEditView::DrawItem(const tItem& item, int y, int left, int width) {
  tClauseData* record = PartOf(item.Part);
  std::string indent = item.Part == 1 ? "  " : "";
  if (item.Kind == Note) return Put(y, left, width, "Nothing to fill in; always written.");
  if (item.Kind == Companion)
    return Put(y, left, width, std::string("Companion: ") + record->Template->Name.Text(),
               Screen->HeadAttr);
  if (item.Kind == Finding)
    return Put(y, left, width, indent + "  ! " + Check.Items[item.Index].Text, Screen->FindingAttr);
  if (item.Kind == Variant) {
    int shown = 0;
    for (int i = 0; i <= item.Index; ++i)
      if (record->Template->VariantLabels[i].Length() > 0) ++shown;
    return Put(y, left, width,
               indent + (record->Check(item.Index) ? "[x] " : "[ ] ") + std::to_string(shown) +
                   " " + record->Template->VariantLabels[item.Index].Text());
  }
  DListtString& values = ListOf(*record, item.List);
  if (item.Kind == Entry) return Put(y, left, width, indent + "    " + values[item.Index]->Text());
  const String& caption =
      item.List == 0 ? record->Template->Value0Label : record->Template->Value1Label;
  std::string head = caption.Length() > 0 ? std::string(caption.Text()) + " (list " : "(list ";
  Put(y, left, width,
      indent + head + std::to_string(item.List + 1) +
          "): " + Count(values.Size(), "entry", "entries"));
}

void tEditView::DrawPreview(int top, int bottom, int left, int width) {
  Put(top, left, width,
      "Filter text of this clause in " + std::string(CurrentSet().Name(nullptr).Text()) +
          (ResolvedPreview ? ", looked up:" : ":"),
      Screen->HeadAttr);
  int height = bottom - top - 1;
  long long count = static_cast<long long>(Preview.Lines.size()) + Preview.More;
  for (int i = 0; i < height && i < count; ++i) {
    if (i == height - 1 && count > height) {
      Put(top + 1 + i, left, width, "... " + Count(count - i, "more line", "more lines"));
      break;
    }
    Put(top + 1 + i, left, width, Preview.Lines[i]);
  }
  if (count == 0) Put(top + 1, left, width, "(none)");
}

void tEditView::DrawBottom() {
  std::string status = " " + Count(static_cast<long>(Check.Items.size()), "finding", "findings") +
                       "  Tab:pane Space:on/off Enter:edit a:add d:del s:save q:quit ?:help";
  Put(LINES - 2, 0, COLS, status, Screen->TitleAttr);
  if (Mode == Typing) {
    // A line longer than the screen is shown from as far on as keeps the
    // cursor on its last column, so that what is typed stays in sight.
    int x = static_cast<int>(Prompt.size()) + Cursor;
    int shift = x < COLS ? 0 : x - (COLS - 1);
    Put(LINES - 1, 0, COLS, (Prompt + Typed).substr(shift));
    move(LINES - 1, x - shift);
    curs_set(1);
  } else {
    std::string line = Mode == Asking ? Prompt : Message;
    // A finding is cut to the pane's width there; here it shows whole.
    if (line.empty() && Focus == ClausePane && !Items.empty() && Items[Row].Kind == Finding)
      line = Check.Items[Items[Row].Index].Text;
    Put(LINES - 1, 0, COLS, line);
  }
}

void tEditView::DrawPage() {
  Put(0, 0, COLS, " " + PageTitle, Screen->TitleAttr);
  int height = LINES - 3;
  for (int i = 0; i < height && PageTop + i < static_cast<int>(Page.size()); ++i)
    Put(1 + i, 0, COLS, Page[PageTop + i]);
  std::string where = " lines " + std::to_string(PageTop + 1) + "-" +
                      std::to_string(PageTop + height < static_cast<int>(Page.size())
                                         ? PageTop + height
                                         : static_cast<int>(Page.size())) +
                      " of " + std::to_string(Page.size()) + "; Up, Down, PgUp, PgDn scroll";
  Put(LINES - 2, 0, COLS, where, Screen->TitleAttr);
  Put(LINES - 1, 0, COLS,
      Purpose == ConfirmSave ? "Save these changes? (y/n)" : "q, Enter or Escape: back");
  refresh();
}
