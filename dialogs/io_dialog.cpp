#include "dialogs/io_dialog.h"

namespace kavr6 {

void IOdialog::FillLimitList() {
  for (const char* words : {"closed", "open", "not used"}) ListLimits.AddItem(words);
  ListLimits.SetListIndex(0);
}

}  // namespace kavr6
