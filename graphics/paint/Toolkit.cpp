#include "graphics/paint/Toolkit.h"

#include "foundation/Error.h"

#include <wx/app.h>
#include <wx/font.h>
#include <wx/gdicmn.h>
#include <wx/init.h>
#include <wx/log.h>
#include <wx/thread.h>

namespace graphics {

namespace {

/// The toolkit takes its stock fonts from the desktop's settings, and ends the process if there is no display to ask.
/// A font that already stands in the table is never asked for.
class CStockFonts : public wxStockGDI {
public:
  static void Fill() {
    const int size = 10;
    Put(FONT_NORMAL, wxFontInfo(size).Family(wxFONTFAMILY_SWISS).FaceName("Sans"));
    Put(FONT_ITALIC, wxFontInfo(size).Family(wxFONTFAMILY_ROMAN).FaceName("Serif").Italic());
    Put(FONT_SMALL, wxFontInfo(size - 2).Family(wxFONTFAMILY_SWISS).FaceName("Sans"));
    Put(FONT_SWISS, wxFontInfo(size).Family(wxFONTFAMILY_SWISS).FaceName("Sans"));
  }

private:
  static void Put(Item item, const wxFontInfo& info) {
    if (!ms_stockObject[item]) ms_stockObject[item] = new wxFont(info);
  }
};

/// Bad files make the toolkit complain; what is wrong with them is told by our own errors. Without a target, messages
/// of other threads are dropped too instead of being kept for a main loop that never runs.
void SilenceToolkit() {
  wxLog::DontCreateOnDemand();
  delete wxLog::SetActiveTarget(nullptr);
  wxDisableAsserts();
}

void Start() {
  // Not wxTheApp, which takes every application object for one with windows.
  if (!wxAppConsole::GetInstance()) {
    wxApp::SetInstance(new wxAppConsole);
    if (!wxInitialize()) throw orlo::CError("The graphics toolkit could not be started");
    // Held for an event loop's sake since the start; here nobody runs one.
    wxMutexGuiLeave();
    SilenceToolkit();
  }
  if (!wxAppConsole::GetInstance()->IsGUI()) CStockFonts::Fill();
}

}  // namespace

void StartToolkit() {
  static std::once_flag once;
  const std::lock_guard guard(ToolkitLock());
  std::call_once(once, Start);
}

std::recursive_mutex& ToolkitLock() {
  static auto* const lock = new std::recursive_mutex;
  return *lock;
}

}  // namespace graphics
