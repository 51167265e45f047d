#ifndef RULEFORGE_EDIT_VIEW_H
#define RULEFORGE_EDIT_VIEW_H

#include <sys/stat.h>

#include <memory>
#include <string>
#include <vector>

#include "edit/datacheck.h"
#include "edit/model.h"
#include "edit/preview.h"
#include "edit/terminal.h"
#include "resolve/dnsresol.h"

// The full-screen face of ruleforge-edit: what the screen shows (the data
// set, clause and row selected, the pane the keys go to, a line being typed,
// a question, a page of text) and the turning of keys into edits of the
// model. It draws the model (edit/draw.cpp) and changes it only through the
// model's operations (edit/keys.cpp). Refers to the model and the names it is
// given; owns its state.
class tEditView {
 public:
  tEditView(tEditModel& model, const char* fileName, const char* templateName);
  // Shows findings text first, if not empty; runs until the user quits.
  void Run(tTerminal& terminal, const std::string& findings);

  // A row of the clause pane: a clause template of the data set, with its
  // record (null for a fixed clause).
  struct tClauseRow {
    const tClauseTemplate* Template;
    tClauseData* Record;
    int RecordIndex;
  };
  // A row of the selected clause's pane.
  enum tItemKind { Variant, ListHead, Entry, Companion, Finding, Note };
  struct tItem {
    tItemKind Kind;
    int Part;
    int List;
    int Index;
  };

 private:
  enum tPane { SetsPane, ClausesPane, ClausePane };
  enum tMode { Normal, Typing, Asking, Paging };
  // What a typed line or an answer is for.
  enum tPurpose {
    None,
    AddSet,
    RenameSet,
    RemoveSet,
    InsertEntry,
    ChangeEntry,
    FindClause,
    ConfirmSave,
    ConfirmQuit,
    DiskChanged,
    ShowPage
  };

  tEditModel& Model;
  tFilterData& Document;
  std::string FileName;
  tDataCheck Check;
  tTerminal* Screen;

  tPane Focus;
  tMode Mode;
  tPurpose Purpose;
  int SetIndex, ClauseIndex, Row;
  int SetTop, ClauseTop, RowTop;
  std::vector<tClauseRow> Clauses;
  std::vector<tItem> Items;
  tPreview Preview;
  // Set by an edit: the findings are made again once no key is waiting.
  bool CheckPending;
  // The preview with host names looked up, through a resolver of the
  // session's own (its answers are kept), made on the first such preview.
  bool ResolvedPreview;
  std::unique_ptr<tDNSResolver> Lookups;
  std::string Message;
  std::string Prompt, Typed;
  int Cursor;
  // The list and position a typed entry goes to.
  int EditPart, EditList, EditPosition;
  std::vector<std::string> Page;
  std::string PageTitle;
  int PageTop;
  int SavedEdits;
  bool Quit;
  struct stat Disk;
  bool DiskPresent;

  DListtClauseData& CurrentSet();
  tClauseRow* CurrentClause();
  tClauseData* PartOf(int part);
  void Rebuild();
  void MakePreview(const tTypedEntry* typed);
  void BuildItems();
  void Edited(int result, const String& why);
  void StampDisk();
  bool DiskDiffers();

  // edit/draw.cpp
  void Draw();
  void DrawSets(int top, int bottom, int width);
  void DrawClauses(int top, int bottom, int width);
  void DrawClause(int top, int bottom, int left, int width);
  void DrawItem(const tItem& item, int y, int left, int width);
  void DrawPreview(int top, int bottom, int left, int width);
  void DrawBottom();
  void DrawPage();

  // edit/keys.cpp
  void Key(int key);
  bool GlobalKey(int key);
  void SetsKey(int key);
  void ClausesKey(int key);
  void ClauseKey(int key);
  void TypingKey(int key);
  void Accept(const std::string& text);
  void AskingKey(int key);
  void PagingKey(int key);
  void Answer(int key);
  void StartTyping(tPurpose purpose, const std::string& prompt, const std::string& text);
  void Ask(tPurpose purpose, const std::string& question);
  void ShowText(tPurpose purpose, const std::string& title, const std::string& text);
  void Save();
  void SaveNow();
  void Reload();
  void Help();
  void LookUpPreview();
  void ToggleVariant(const tItem& item);
  void RemoveItem(const tItem& item);
  void MoveItem(const tItem& item, int by);
};

// Moves a selection by key (arrows, page keys, Home, End) within count rows
// shown height at a time; returns false for other keys.
bool MoveSelection(int key, int count, int height, int& selected);
// Keeps selected within the rows shown from top, height of them.
void Scroll(int selected, int height, int& top);

#endif
