#include <curses.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include "app/common.h"
#include "edit/readback.h"
#include "edit/save.h"
#include "edit/scratch.h"
#include "edit/view.h"

namespace {

const int kEnter = 10, kReturn = 13, kEscape = 27, kCtrlL = 12, kDelete = 127;

bool IsEnter(int key) { return key == kEnter || key == kReturn || key == KEY_ENTER; }

const char kHelp[] =
    "Panes: data sets, clauses of the data set, the selected clause.\n"
    "\n"
    "Tab, Shift-Tab      next, previous pane\n"
    "Up, Down, PgUp, PgDn, Home, End   select a row\n"
    "Right, Enter        go to the next pane\n"
    "Left                go to the pane before\n"
    "Space               switch the selected variant on or off\n"
    "Enter               edit the selected entry; on a list's caption, add one\n"
    "Insert, a           add an entry after the selected one (commas: several)\n"
    "                    in the data sets pane: add a label data set\n"
    "Delete, d           remove the selected entry, or the selected data set\n"
    "r                   rename the selected data set\n"
    "-, +                move the selected entry up, down\n"
    "/                   find a clause by a part of its name\n"
    "s                   save: shows the difference and asks\n"
    "q                   quit (asks when there are unsaved changes)\n"
    "Ctrl-L              redraw the screen\n"
    "R                   the preview with host names looked up, or as typed\n"
    "?, F1               this help\n"
    "\n"
    "While typing: Left, Right, Home, End, Backspace, Delete; Enter takes the\n"
    "line, Escape drops it. Questions take y or n; Escape is no.\n";

}  // namespace

bool MoveSelection(int key, int count, int height, int& selected) {
  int page = std::max(height - 1, 1);
  switch (key) {
    case KEY_UP:
      selected -= 1;
      break;
    case KEY_DOWN:
      selected += 1;
      break;
    case KEY_PPAGE:
      selected -= page;
      break;
    case KEY_NPAGE:
      selected += page;
      break;
    case KEY_HOME:
      selected = 0;
      break;
    case KEY_END:
      selected = count - 1;
      break;
    default:
      return false;
  }
  if (selected >= count) selected = count - 1;
  if (selected < 0) selected = 0;
  return true;
}

void Scroll(int selected, int height, int& top) {
  if (selected < top) top = selected;
  if (height > 0 && selected >= top + height) top = selected - height + 1;
  if (top < 0) top = 0;
}

void tEditView::Key(int key) {
  if (key == KEY_RESIZE) return;
  if (key == kCtrlL) {
    clearok(curscr, TRUE);
    return;
  }
  if (Mode == Typing) return TypingKey(key);
  if (Mode == Asking) return AskingKey(key);
  if (Mode == Paging) return PagingKey(key);
  Message.clear();
  if (GlobalKey(key)) return;
  if (Focus == SetsPane) return SetsKey(key);
  if (Focus == ClausesPane) return ClausesKey(key);
  ClauseKey(key);
}

bool tEditView::GlobalKey(int key) {
  switch (key) {
    case '\t':
      Focus = Focus == ClausePane ? SetsPane : static_cast<tPane>(Focus + 1);
      break;
    case KEY_BTAB:
      Focus = Focus == SetsPane ? ClausePane : static_cast<tPane>(Focus - 1);
      break;
    case 's':
      Save();
      break;
    case 'q':
      if (Model.Edits == SavedEdits)
        Quit = true;
      else
        Ask(ConfirmQuit, "There are unsaved changes. Quit without saving them? (y/n)");
      break;
    case '?':
    case KEY_F(1):
      Help();
      break;
    case '/':
      StartTyping(FindClause, "Find clause: ", "");
      break;
    case 'R':
      LookUpPreview();
      break;
    default:
      return false;
  }
  return true;
}

void tEditView::SetsKey(int key) {
  String name = CurrentSet().Name(nullptr);
  if (MoveSelection(key, Document.DataSets.Size(), 5, SetIndex)) {
    ClauseIndex = Row = 0;
    return Rebuild();
  }
  if (IsEnter(key) || key == KEY_RIGHT) Focus = ClausesPane;
  if (key == 'a' || key == KEY_IC) StartTyping(AddSet, "New label data set: ", "");
  if (key == 'r') StartTyping(RenameSet, "Rename data set to: ", name.Text());
  if (key == 'd' || key == KEY_DC)
    Ask(RemoveSet, std::string("Remove data set '") + name.Text() + "' and all its data? (y/n)");
}

void tEditView::ClausesKey(int key) {
  if (MoveSelection(key, static_cast<int>(Clauses.size()), LINES - 10, ClauseIndex)) {
    Row = 0;
    return Rebuild();
  }
  if (IsEnter(key) || key == KEY_RIGHT) Focus = ClausePane;
  if (key == KEY_LEFT) Focus = SetsPane;
}

void tEditView::ClauseKey(int key) {
  if (MoveSelection(key, static_cast<int>(Items.size()), LINES / 2, Row)) return;
  if (key == KEY_LEFT) Focus = ClausesPane;
  if (Items.empty()) return;
  const tItem item = Items[Row];
  tClauseData* record = PartOf(item.Part);
  if (item.Kind == Variant && (key == ' ' || IsEnter(key))) return ToggleVariant(item);
  if (!record || (item.Kind != Entry && item.Kind != ListHead)) return;
  EditPart = item.Part;
  EditList = item.List;
  int size = ListOf(*record, item.List).Size();
  if (item.Kind == Entry && IsEnter(key)) {
    EditPosition = item.Index;
    StartTyping(ChangeEntry, "Change entry: ", ListOf(*record, item.List)[item.Index]->Text());
  } else if (IsEnter(key) || key == 'a' || key == KEY_IC) {
    EditPosition = item.Kind == Entry ? item.Index + 1 : size;
    StartTyping(InsertEntry, "Add entries (commas between them): ", "");
  } else if (item.Kind == Entry && (key == 'd' || key == KEY_DC)) {
    RemoveItem(item);
  } else if (item.Kind == Entry && (key == '-' || key == '+')) {
    MoveItem(item, key == '-' ? -1 : 1);
  }
}

void tEditView::ToggleVariant(const tItem& item) {
  tClauseData* record = PartOf(item.Part);
  String why;
  Edited(Model.SetVariant(*record, item.Index, !record->Check(item.Index), why), why);
}

void tEditView::RemoveItem(const tItem& item) {
  String why;
  Edited(Model.RemoveEntry(*PartOf(item.Part), item.List, item.Index, why), why);
}

void tEditView::MoveItem(const tItem& item, int by) {
  String why;
  int to = item.Index + by;
  int result = Model.MoveEntry(*PartOf(item.Part), item.List, item.Index, to, why);
  Edited(result, why);
  if (result == 0) Row += by;
}

void tEditView::StartTyping(tPurpose purpose, const std::string& prompt, const std::string& text) {
  Mode = Typing;
  Purpose = purpose;
  Prompt = prompt;
  Typed = text;
  Cursor = static_cast<int>(text.size());
}

void tEditView::TypingKey(int key) {
  int size = static_cast<int>(Typed.size());
  if (IsEnter(key)) {
    Mode = Normal;
    return Accept(Typed);
  }
  if (key == kEscape) {
    Mode = Normal;
    return MakePreview(nullptr);
  }
  if ((key == KEY_BACKSPACE || key == kDelete || key == 8) && Cursor > 0) Typed.erase(--Cursor, 1);
  if (key == KEY_DC) Typed.erase(Cursor, 1);  // nothing at the end
  if (key == KEY_LEFT && Cursor > 0) --Cursor;
  if (key == KEY_RIGHT && Cursor < size) ++Cursor;
  if (key == KEY_HOME) Cursor = 0;
  if (key == KEY_END) Cursor = size;
  if ((key >= 32 && key < kDelete) || (key >= 128 && key < 256))
    Typed.insert(Cursor++, 1, static_cast<char>(key));
  if (Purpose == ChangeEntry || Purpose == InsertEntry) {
    tTypedEntry typed{EditPart, EditList, EditPosition, Purpose == InsertEntry, Typed};
    MakePreview(&typed);
  }
}

void tEditView::Accept(const std::string& text) {
  String why;
  switch (Purpose) {
    case AddSet: {
      int result = Model.AddSet(text.c_str(), why);
      if (result == 0) SetIndex = Document.DataSets.Size() - 1;
      return Edited(result, why);
    }
    case RenameSet:
      return Edited(Model.RenameSet(CurrentSet(), text.c_str(), why), why);
    case ChangeEntry:
      return Edited(Model.ChangeEntry(*PartOf(EditPart), EditList, EditPosition, text.c_str(), why),
                    why);
    case InsertEntry:
      return Edited(
          Model.InsertEntries(*PartOf(EditPart), EditList, EditPosition, text.c_str(), why), why);
    case FindClause:
      for (int n = 1; n <= static_cast<int>(Clauses.size()); ++n) {
        int at = (ClauseIndex + n) % static_cast<int>(Clauses.size());
        if (std::string(Clauses[at].Template->Name.Text()).find(text) == std::string::npos)
          continue;
        ClauseIndex = at;
        Focus = ClausesPane;
        Row = 0;
        return Rebuild();
      }
      Message = "No clause of this data set has '" + text + "' in its name.";
      return;
    default:
      return;
  }
}

void tEditView::Ask(tPurpose purpose, const std::string& question) {
  Mode = Asking;
  Purpose = purpose;
  Prompt = question;
}

void tEditView::AskingKey(int key) {
  if (Purpose == DiskChanged) {
    if (key == 'd') {
      std::string diff;
      int status = 0;
      std::string said = Quietly([&] { status = DiffText(Document, FileName.c_str(), diff); });
      Mode = Normal;
      if (status != 0)
        Message = said;
      else
        ShowText(ShowPage, "How saving would change the file as it is on disk now:", diff);
    } else if (key == 'r') {
      Mode = Normal;
      Reload();
    } else if (key == 'c' || key == kEscape || key == 'n') {
      Mode = Normal;
    }
    return;
  }
  if (key == 'y' || key == 'Y') return Answer(key);
  if (key == 'n' || key == 'N' || key == kEscape) Mode = Normal;
}

void tEditView::Answer(int) {
  Mode = Normal;
  String why;
  if (Purpose == ConfirmQuit) Quit = true;
  if (Purpose == RemoveSet) Edited(Model.RemoveSet(CurrentSet(), why), why);
}

void tEditView::ShowText(tPurpose purpose, const std::string& title, const std::string& text) {
  Mode = Paging;
  Purpose = purpose;
  PageTitle = title;
  PageTop = 0;
  Page.clear();
  for (size_t start = 0; start < text.size();) {
    size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    // Long lines go on over the next rows.
    for (size_t at = start; at < end || at == start; at += static_cast<size_t>(COLS)) {
      Page.push_back(text.substr(at, std::min(end - at, static_cast<size_t>(COLS))));
      if (at + COLS >= end) break;
    }
    start = end + 1;
  }
}

void tEditView::PagingKey(int key) {
  int height = LINES - 3;
  int last = static_cast<int>(Page.size()) - height;
  int top = PageTop;
  if (key == KEY_UP) --top;
  if (key == KEY_DOWN) ++top;
  if (key == KEY_PPAGE) top -= height;
  if (key == KEY_NPAGE || key == ' ') top += height;
  if (key == KEY_HOME) top = 0;
  if (key == KEY_END) top = last;
  PageTop = top > last ? last : top;
  if (PageTop < 0) PageTop = 0;
  if (Purpose == ConfirmSave) {
    if (key == 'y' || key == 'Y') {
      Mode = Normal;
      SaveNow();
    } else if (key == 'n' || key == 'N' || key == kEscape || key == 'q') {
      Mode = Normal;
      Message = "Not saved.";
    }
  } else if (key == 'q' || key == kEscape || IsEnter(key)) {
    Mode = Normal;
  }
}

void tEditView::Save() {
  if (DiskDiffers())
    return Ask(DiskChanged,
               "The file changed on disk: d difference, r reload (edits are lost), c cancel");
  String why;
  if (!DataReadsBack(Document, why)) {
    Message = std::string("Cannot save: ") + why.Text() + ".";
    return;
  }
  std::string diff;
  int status = 0;
  std::string said = Quietly([&] { status = DiffText(Document, FileName.c_str(), diff); });
  error = 0;
  if (status != 0) {
    Message = said;
  } else if (diff.empty()) {
    Message = "Nothing to save: the file already holds this.";
  } else {
    ShowText(ConfirmSave, "Saving changes the file so:", diff);
  }
}

void tEditView::SaveNow() {
  error = 0;
  std::string failed = Quietly([&] { SaveFile(Document, FileName.c_str()); });
  if (error != 0) {
    Message = failed;
    error = 0;
    return;
  }
  SavedEdits = Model.Edits;
  StampDisk();
  Message = "Saved " + FileName + ".";
}

void tEditView::Reload() {
  error = 0;
  std::string failed;
  if (access(FileName.c_str(), F_OK) == 0)
    failed = Quietly([&] { Document.ReadData(FileName.c_str()); });
  else
    Document.New();
  Message = error != 0 && error != 6 ? failed : "Reloaded " + FileName + ".";
  error = 0;
  SavedEdits = Model.Edits;
  StampDisk();
  SetIndex = ClauseIndex = Row = 0;
  CheckPending = true;
  Rebuild();
}

void tEditView::Help() { ShowText(ShowPage, "Keys of ruleforge-edit:", kHelp); }

void tEditView::LookUpPreview() {
  if (!Document.ResolveNames) {
    Message = "Host names are not looked up: the editor runs with -r.";
    return;
  }
  ResolvedPreview = !ResolvedPreview;
  Rebuild();
}
