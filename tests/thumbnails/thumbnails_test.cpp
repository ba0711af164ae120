// korilan-thumbnails.dll as a file manager uses it: by its COM classes alone.
#include "cli/single_file.h"
#include "core/file_kinds.h"
#include "pixels/png.h"
#include "samples/samples.h"
#include "support/temporary_folder.h"

#include <windows.h>

#include <psapi.h>
#include <shlwapi.h>
#include <thumbcache.h>

#include <future>
#include <process.h>

namespace {

using Bytes = std::vector<uint8_t>;

constexpr HRESULT kInitializedAlready = static_cast<HRESULT>(0x800704DF);
constexpr HRESULT kFileTooLarge = static_cast<HRESULT>(0x800700DF);
HMODULE library = nullptr;
std::string cliPath;

template <typename... Arguments> HRESULT call(const char *name, Arguments... arguments) {
  return reinterpret_cast<HRESULT(STDAPICALLTYPE *)(Arguments...)>(
      reinterpret_cast<void *>(GetProcAddress(library, name)))(arguments...);
}

std::string classText(const std::string &letters) {
  std::string text = "{5D5C1B7E-93F0-4E4C-8A26-6B6F72";
  for (const char letter : letters)
    text += std::string{"0123456789ABCDEF"[letter / 16], "0123456789ABCDEF"[letter % 16]};
  return text + "}";
}

HRESULT createProvider(const std::string &letters, IThumbnailProvider **provider) {
  const std::string text = classText(letters);
  CLSID id{};
  CLSIDFromString(std::wstring(text.begin(), text.end()).c_str(), &id);
  IClassFactory *factory = nullptr;
  const HRESULT found = call("DllGetClassObject", &std::as_const(id), &IID_IClassFactory, &factory);
  if (FAILED(found)) return found;
  const HRESULT created =
      factory->CreateInstance(nullptr, __uuidof(IThumbnailProvider), reinterpret_cast<void **>(provider));
  factory->Release();
  return created;
}

// Takes the stream, as hosts do: nothing of it is used afterwards.
HRESULT initialize(IThumbnailProvider *provider, IStream *stream) {
  IInitializeWithStream *target = nullptr;
  provider->QueryInterface(__uuidof(IInitializeWithStream), reinterpret_cast<void **>(&target));
  const HRESULT result = target->Initialize(stream, STGM_READ);
  target->Release();
  EXPECT_EQ(stream->Release(), 0U);
  return result;
}

IStream *streamOf(const Bytes &bytes) { return SHCreateMemStream(bytes.data(), static_cast<UINT>(bytes.size())); }

// The thumbnail as a PNG file; empty if there is none.
Bytes thumbnailOf(IThumbnailProvider *provider, UINT side) {
  HBITMAP bitmap = nullptr;
  WTS_ALPHATYPE alpha = WTSAT_UNKNOWN;
  if (FAILED(provider->GetThumbnail(side, &bitmap, &alpha)) || alpha != WTSAT_RGB) return {};
  BITMAP measures{};
  GetObjectW(bitmap, sizeof measures, &measures);
  const LONG width = measures.bmWidth, height = measures.bmHeight;
  BITMAPINFO info{{sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0}, {}};
  std::vector<uint32_t> words(static_cast<size_t>(width * height));
  const HDC screen = CreateCompatibleDC(nullptr);
  GetDIBits(screen, bitmap, 0, static_cast<UINT>(height), words.data(), &info, DIB_RGB_COLORS);
  DeleteDC(screen);
  DeleteObject(bitmap);
  Bytes file;
  putPng({words, width, height}, {}, false, [&](std::span<const uint8_t> bytes) {
    file.insert(file.end(), bytes.begin(), bytes.end());
    return "";
  });
  return measures.bmBitsPixel == 32 ? file : Bytes();
}

// The thumbnails of the first sample of a kind that differ from what the command line writes of its file.
std::string differences(const TemporaryFolder &folder, const std::string &letters, bool byProgram) {
  const auto isOfKind = [&](const auto &sample) { return sample.name.ends_with("." + letters); };
  const std::u8string name(letters.begin(), letters.end());
  const std::string path = folder.write(u8"a." + name, std::ranges::find_if(allSamples(), isOfKind)->bytes);
  const std::string png = folder.path + letters + ".png";
  IThumbnailProvider *provider = nullptr;
  IStream *stream = nullptr;
  SHCreateStreamOnFileA(path.c_str(), STGM_READ | STGM_SHARE_DENY_WRITE, &stream);
  if (FAILED(createProvider(letters, &provider)) || FAILED(initialize(provider, stream))) return letters + " refused ";
  std::string different;
  for (const int32_t side : {64, 256, 1024}) {
    const std::string number = std::to_string(side);
    if (byProgram) {
      _spawnl(_P_WAIT, cliPath.c_str(), "cli", "thumb", "--size", number.c_str(), path.c_str(), png.c_str(), nullptr);
    } else {
      writeSingleFile({.command = CliCommand::kThumb, .outPath = png, .size = side}, {.path = path});
    }
    const Bytes thumbnail = thumbnailOf(provider, static_cast<UINT>(side));
    const bool isShown = letters != "GLC"; // all of these are refused
    if (thumbnail.empty() == isShown || thumbnail != folder.read(name + u8".png"))
      different += letters + " " + number + " ";
  }
  if (!DeleteFileA(path.c_str())) different += letters + " is held open ";
  provider->Release();
  return different;
}

TEST(Thumbnails, AreThoseOfTheCommandLine) {
  const TemporaryFolder folder("thumbnails");
  std::vector<std::future<std::string>> found; // a host may ask in several threads
  for (const FileKind &kind : kFileKinds) {
    const std::string letters = kind.extension + 1;
    if (letters == "SCR" || letters == "DAT" || letters == "TGS") continue;
    found.push_back(std::async(std::launch::async, [&folder, letters] { return differences(folder, letters, false); }));
  }
  EXPECT_EQ(found.size(), 40U);
  for (auto &each : found) EXPECT_EQ(each.get(), "");
  for (const char *letters : {"SC7", "EVA"}) EXPECT_EQ(differences(folder, letters, true), "");
  EXPECT_EQ(call("DllCanUnloadNow"), S_OK);
}

TEST(Thumbnails, AreRefused) {
  IThumbnailProvider *provider = nullptr;
  for (const char *letters : {"SCR", "DAT", "TGS", "TCS", "sc5"}) {
    EXPECT_EQ(createProvider(letters, &provider), CLASS_E_CLASSNOTAVAILABLE) << letters;
  }
  HBITMAP bitmap = nullptr;
  WTS_ALPHATYPE alpha{};
  ASSERT_EQ(createProvider("SC5", &provider), S_OK);
  EXPECT_EQ(provider->GetThumbnail(64, &bitmap, &alpha), E_UNEXPECTED);
  EXPECT_EQ(initialize(provider, streamOf(Bytes((size_t{64} << 20) + 1))), kFileTooLarge);
  EXPECT_EQ(initialize(provider, streamOf({'A', 'B'})), S_OK);
  EXPECT_EQ(initialize(provider, streamOf(sampleNamed("COAST.SC5").bytes)), kInitializedAlready);
  EXPECT_EQ(provider->GetThumbnail(64, &bitmap, &alpha), WTS_E_FAILEDEXTRACTION);
  EXPECT_EQ(bitmap, nullptr);
  EXPECT_EQ(call("DllCanUnloadNow"), S_FALSE);
  provider->Release();
}

// Wine does not count handles but takes the lowest number that is free.
uintptr_t nextHandle() {
  const HANDLE event = CreateEventW(nullptr, FALSE, FALSE, nullptr);
  CloseHandle(event);
  return reinterpret_cast<uintptr_t>(event);
}

TEST(Thumbnails, ThousandLeaveNothingBehind) {
  uintptr_t handle = 0, handleBefore = 0;
  PROCESS_MEMORY_COUNTERS memory{}, memoryBefore{};
  for (int i = 0; i <= 1000; ++i) {
    IThumbnailProvider *provider = nullptr;
    ASSERT_EQ(createProvider("SC5", &provider), S_OK);
    ASSERT_EQ(initialize(provider, streamOf(sampleNamed("COAST.SC5").bytes)), S_OK);
    ASSERT_FALSE(thumbnailOf(provider, 64).empty());
    EXPECT_EQ(provider->Release(), 0U);
    (i == 0 ? handleBefore : handle) = nextHandle();
    GetProcessMemoryInfo(GetCurrentProcess(), i == 0 ? &memoryBefore : &memory, sizeof memory);
  }
  EXPECT_EQ(handle, handleBefore);
  EXPECT_LT(memory.PagefileUsage, memoryBefore.PagefileUsage + 2'000'000); // 40 files or 120 bitmaps
  EXPECT_EQ(call("DllCanUnloadNow"), S_OK);
}

// All keys and texts below a key, each on a line.
std::string listed(HKEY key, const std::string &path) {
  std::string text;
  std::array<char, 512> name{}, value{};
  DWORD length = name.size(), bytes = value.size();
  for (DWORD i = 0; RegEnumValueA(key, i, name.data(), &length, nullptr, nullptr,
                                  reinterpret_cast<BYTE *>(value.data()), &bytes) == ERROR_SUCCESS;
       ++i, length = name.size(), bytes = value.size()) {
    text += path + name.data() + " = " + value.data() + "\n";
  }
  for (DWORD i = 0; RegEnumKeyA(key, i, name.data(), name.size()) == ERROR_SUCCESS; ++i) {
    const std::string below = path + name.data() + "\\";
    HKEY child = nullptr;
    RegOpenKeyExA(key, name.data(), 0, KEY_READ, &child);
    text += below + "\n" + listed(child, below);
    RegCloseKey(child);
  }
  return text;
}

std::string userClasses() {
  HKEY key = nullptr;
  RegCreateKeyA(HKEY_CURRENT_USER, "Software\\Classes", &key);
  const std::string text = listed(key, "");
  RegCloseKey(key);
  return text;
}

TEST(Thumbnails, AreRegisteredWhereNobodyElseIs) {
  const std::string handler = "\\ShellEx\\{E357FCCD-A995-4576-B01F-234630154E96}";
  const std::string classes = "Software\\Classes\\", machines = classes + ".SC7" + handler;
  const auto set = [](HKEY root, const std::string &key, const std::string &text) {
    RegSetKeyValueA(root, key.c_str(), nullptr, REG_SZ, text.c_str(), static_cast<DWORD>(text.size() + 1));
  };
  call("DllUnregisterServer");
  set(HKEY_CURRENT_USER, classes + ".SC5" + handler, "{foreign}");
  set(HKEY_CURRENT_USER, classes + ".SC8", "Program.Picture");
  set(HKEY_LOCAL_MACHINE, machines, "{foreign}");
  const std::string before = userClasses();

  for (int twice = 0; twice < 2; ++twice) EXPECT_EQ(call("DllRegisterServer"), S_OK);
  const std::string during = userClasses();
  const auto holds = [&](const std::string &line) {
    return ("\n" + during).find("\n" + line + "\n") != std::string::npos;
  };
  std::array<char, MAX_PATH> path{};
  GetModuleFileNameA(library, path.data(), path.size());
  const std::string server = "CLSID\\" + classText("SC8") + "\\InprocServer32\\";
  EXPECT_TRUE(holds(server + " = " + path.data()) && holds(server + "ThreadingModel = Apartment")) << during;
  EXPECT_TRUE(holds(".SC8" + handler + "\\ = " + classText("SC8")) && holds(".SC8\\ = Program.Picture")) << during;
  for (const char *letters : {"SC5", "SC7", "SCR", "DAT", "TGS"}) {
    EXPECT_EQ(during.find(classText(letters)), std::string::npos) << letters;
  }

  EXPECT_EQ(call("DllUnregisterServer"), S_OK);
  EXPECT_EQ(userClasses(), before);
  for (const char *key : {".SC5", ".SC8"}) RegDeleteTreeA(HKEY_CURRENT_USER, (classes + key).c_str());
  RegDeleteTreeA(HKEY_LOCAL_MACHINE, (classes + ".SC7").c_str());
}

} // namespace

int main(int argumentCount, char **arguments) {
  ::testing::InitGoogleTest(&argumentCount, arguments);
  library = LoadLibraryA(arguments[1]);
  cliPath = arguments[2];
  return RUN_ALL_TESTS();
}
