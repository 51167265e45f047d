#include "edit/view.h"

#include <algorithm>
#include <cstring>

#include "edit/scratch.h"

tEditView::tEditView(tEditModel& model, const char* fileName, const char* templateName)
    : Model(model),
      Document(model.Document),
      FileName(fileName),
      Check(templateName, model.Document.ResolveNames),
      Screen(nullptr),
      Focus(ClausesPane),
      Mode(Normal),
      Purpose(None),
      SetIndex(0),
      ClauseIndex(0),
      Row(0),
      SetTop(0),
      ClauseTop(0),
      RowTop(0),
      CheckPending(true),
      ResolvedPreview(false),
      Cursor(0),
      EditPart(0),
      EditList(0),
      EditPosition(0),
      PageTop(0),
      SavedEdits(model.Edits),
      Quit(false),
      Disk(),
      DiskPresent(false) {
  StampDisk();
  Rebuild();
}

void tEditView::Run(tTerminal& terminal, const std::string& findings) {
  Screen = &terminal;
  if (!findings.empty())
    ShowText(ShowPage,
             "The file was read with these findings; the editor shows the data as read:", findings);
  Draw();
  while (!Quit) {
    // The findings of a large file take longer than a key may: they follow
    // the screen that answers the key, unless more keys are waiting.
    int key = terminal.Key(CheckPending ? 0 : 100);
    if (key < 0 && CheckPending) {
      CheckPending = false;
      Check.Run(Document);
      BuildItems();
      Draw();
    }
    if (key < 0) continue;
    Key(key);
    if (!Quit) Draw();
  }
}

DListtClauseData& tEditView::CurrentSet() {
  return *static_cast<DListtClauseData*>(Document.DataSets[SetIndex]);
}

tEditView::tClauseRow* tEditView::CurrentClause() {
  if (ClauseIndex < 0 || ClauseIndex >= static_cast<int>(Clauses.size())) return nullptr;
  return &Clauses[ClauseIndex];
}

tClauseData* tEditView::PartOf(int part) {
  tClauseRow* clause = CurrentClause();
  if (!clause || !clause->Record) return nullptr;
  return part == 0 ? clause->Record : clause->Record->Partner;
}

// After the data set or clause changed, or an edit: the rows of the two lower
// panes and the preview are made again.
void tEditView::Rebuild() {
  if (SetIndex >= Document.DataSets.Size()) SetIndex = Document.DataSets.Size() - 1;
  DListtClauseData& set = CurrentSet();
  Clauses.clear();
  DListWalk<tClauseData> records(set);
  auto record = records.begin();
  int index = 0;
  if (set.Templates) {
    for (const tClauseTemplate* clause : Walk<const tClauseTemplate>(*set.Templates)) {
      if (clause->Flags & tClauseTemplate::FixedClause) {
        Clauses.push_back({clause, nullptr, -1});
      } else if (record != records.end()) {
        Clauses.push_back({clause, *record, index++});
        ++record;
      }
    }
  }
  if (ClauseIndex >= static_cast<int>(Clauses.size()))
    ClauseIndex = static_cast<int>(Clauses.size()) - 1;
  if (ClauseIndex < 0) ClauseIndex = 0;
  BuildItems();
  MakePreview(nullptr);
}

// The preview of the selected clause; typed, while an entry is being typed,
// shows it as if accepted.
void tEditView::MakePreview(const tTypedEntry* typed) {
  DListtClauseData& set = CurrentSet();
  tClauseRow* clause = CurrentClause();
  Preview = tPreview();
  if (clause && clause->Record && ResolvedPreview) {
    if (!Lookups) Lookups.reset(new tDNSResolver);
    Resolver = Lookups.get();
    std::string said =
        Quietly([&] { Preview = PreviewLines(Document, set, *clause->Record, typed); });
    Resolver = nullptr;
    if (!said.empty()) Message = said;
  } else if (clause && clause->Record) {
    Preview = PreviewLines(Document, set, *clause->Record, typed);
  }
  if (clause && !clause->Record) Preview = FixedPreviewLines(Document, set, *clause->Template);
}

// Where a finding goes: after the entry it quotes, else after the list.
static int QuotedEntry(const std::string& finding, DListtString& values) {
  size_t open = finding.find('"');
  size_t close = open == std::string::npos ? open : finding.find('"', open + 1);
  if (close == std::string::npos) return -1;
  std::string quoted = finding.substr(open + 1, close - open - 1);
  int i = 0;
  for (const tString* entry : Walk<const tString>(values)) {
    if (quoted == entry->Text()) return i;
    ++i;
  }
  return -1;
}

void tEditView::BuildItems() {
  Items.clear();
  tClauseRow* clause = CurrentClause();
  if (!clause) return;
  if (!clause->Record) return Items.push_back({Note, 0, 0, 0});
  for (int part = 0; part < 2; ++part) {
    tClauseData* record = PartOf(part);
    if (!record) break;
    if (part == 1) Items.push_back({Companion, 1, 0, 0});
    for (int i = 0; i < 4; ++i)
      if (record->Template->VariantLabels[i].Length() > 0) Items.push_back({Variant, part, 0, i});
    for (int list = 0; list < 2; ++list) {
      DListtString& values = ListOf(*record, list);
      std::vector<std::pair<int, int>> findings;  // entry (-1: the list), finding
      for (int f = 0; f < static_cast<int>(Check.Items.size()); ++f) {
        const tDataFinding& finding = Check.Items[f];
        if (finding.Set == SetIndex && finding.Record == clause->RecordIndex &&
            finding.Part == part && finding.List == list)
          findings.push_back({QuotedEntry(finding.Text, values), f});
      }
      Items.push_back({ListHead, part, list, 0});
      for (auto& f : findings)
        if (f.first < 0) Items.push_back({Finding, part, list, f.second});
      int size = values.Size();
      for (int e = 0; e < size; ++e) {
        Items.push_back({Entry, part, list, e});
        for (auto& f : findings)
          if (f.first == e) Items.push_back({Finding, part, list, f.second});
      }
    }
  }
  Row = std::max(0, std::min(Row, static_cast<int>(Items.size()) - 1));
}

void tEditView::Edited(int result, const String& why) {
  if (result < 0) {
    Message = std::string("Refused: ") + why.Text() + ".";
    return;
  }
  Message.clear();
  CheckPending = true;
  Rebuild();
}

void tEditView::StampDisk() { DiskPresent = stat(FileName.c_str(), &Disk) == 0; }

bool tEditView::DiskDiffers() {
  struct stat now;
  bool present = stat(FileName.c_str(), &now) == 0;
  if (present != DiskPresent) return true;
  if (!present) return false;
  return now.st_ino != Disk.st_ino || now.st_size != Disk.st_size ||
         now.st_mtim.tv_sec != Disk.st_mtim.tv_sec || now.st_mtim.tv_nsec != Disk.st_mtim.tv_nsec;
}
