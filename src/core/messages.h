// Message boxes as the logic shows them: the information style, titled
// "Message", unless told otherwise.
#pragma once

#include <string>

#include "platform/screen.h"

void sShowMessage(const std::string& text);
// The same box with a detailed text the user can unfold under the message.
void sShowMessageWithDetail(const std::string& text, const std::string& detail);
int fAskYesNo(const std::string& text, const std::string& title = "Message");
