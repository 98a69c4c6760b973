// Message boxes as the logic shows them: the information style, titled
// "Message", unless told otherwise.
#pragma once

#include <string>

#include "platform/screen.h"

void sShowMessage(const std::string& text);
int fAskYesNo(const std::string& text, const std::string& title = "Message");
