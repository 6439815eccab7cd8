#include "system/ChildProgram.h"

#include "platform/win32/Handle.h"
#include "platform/win32/WideText.h"

namespace korvel {
namespace {

/// As the C library of the program that is started takes it apart again.
std::wstring quoted(const std::wstring& word) {
    std::wstring text = L"\"";
    std::size_t backslashes = 0;
    for (const wchar_t c : word) {
        if (c == L'"') text.append(backslashes + 1, L'\\');
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        text += c;
    }
    return text.append(backslashes, L'\\') + L'"';
}

Handle openInherited(const wchar_t* name, DWORD access, DWORD creation) {
    SECURITY_ATTRIBUTES inherited{};
    inherited.nLength = sizeof inherited;
    inherited.bInheritHandle = TRUE;
    return Handle(CreateFileW(
        name, access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, creation, FILE_ATTRIBUTE_NORMAL, nullptr));
}

}  // namespace

int runProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments,
    const std::filesystem::path& output, const std::filesystem::path& errors) {
    std::wstring line = quoted(program.native());
    for (const std::string& argument : arguments) line += L" " + quoted(wideText(argument));
    const Handle in = openInherited(L"NUL", GENERIC_READ, OPEN_EXISTING);
    const Handle out = openInherited(output.c_str(), GENERIC_WRITE, CREATE_ALWAYS);
    const Handle err = openInherited(errors.c_str(), GENERIC_WRITE, CREATE_ALWAYS);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = in.get();
    start.hStdOutput = out.get();
    start.hStdError = err.get();
    PROCESS_INFORMATION started{};
    if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &started) ==
        FALSE)
        return -1;
    const Handle process(started.hProcess);
    const Handle thread(started.hThread);
    DWORD code = 0;
    if (WaitForSingleObject(process.get(), INFINITE) != WAIT_OBJECT_0 ||
        GetExitCodeProcess(process.get(), &code) == FALSE)
        return -1;
    return static_cast<int>(code);
}

}  // namespace korvel
