#include "CommonLib/Exception.h"

#include <utility>

Exception::Exception(std::wstring messageText, std::int32_t errorCode, std::wstring sourceFile,
                     std::int32_t sourceLine)
    : message(std::move(messageText)), code(errorCode), file(std::move(sourceFile)), line(sourceLine) {}

std::wstring Exception::getCodeText() const {
    return code == 0 ? std::wstring() : std::to_wstring(code);
}

std::int32_t Exception::getCode() const {
    return code;
}

std::wstring Exception::getMessage() const {
    return message;
}

std::wstring Exception::getFullText() const {
    std::wstring text;
    if (!file.empty()) text = L"file:" + file + L':' + std::to_wstring(line) + L": ";
    text += message;
    const std::wstring codeText = getCodeText();
    return codeText.empty() ? text : text + L": " + codeText;
}
