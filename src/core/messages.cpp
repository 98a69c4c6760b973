// Message boxes of the logic.
#include "core/messages.h"

void sShowMessage(const std::string& text) {
  platform::windowSystem().messageBox(text, platform::kMsgInformation, "Message");
}

void sShowMessageWithDetail(const std::string& text, const std::string& detail) {
  platform::windowSystem().messageBoxWithDetail(text, platform::kMsgInformation, "Message",
                                                detail);
}

int fAskYesNo(const std::string& text, const std::string& title) {
  return platform::windowSystem().messageBox(text, platform::kMsgYesNo | platform::kMsgQuestion,
                                             title);
}
