// korilan-thumbnails.dll as a file manager uses it: by its COM classes alone.
#include "cli/single_file.h"
#include "core/file_kinds.h"
#include "pixels/png.h"
#include "samples/samples.h"

#include <windows.h>

#include <psapi.h>
#include <shlwapi.h>
#include <thumbcache.h>

#include <future>
#include <process.h>

namespace {

HMODULE library = nullptr;
std::string cliPath;

template <typename... Arguments> HRESULT call(const char *name, Arguments... arguments) {
  const auto function = reinterpret_cast<void *>(GetProcAddress(library, name));
  return reinterpret_cast<HRESULT(STDAPICALLTYPE *)(Arguments...)>(function)(arguments...);
}

std::string classText(const char *letters) {
  std::ostringstream text;
  text << "{5D5C1B7E-93F0-4E4C-8A26-6B6F72" << std::hex << std::uppercase;
  for (; *letters != '\0'; ++letters) text << int{*letters};
  return text.str() + "}";
}

HRESULT createProvider(const std::string &letters, IThumbnailProvider **provider) {
  const std::string text = classText(letters.c_str());
  CLSID id{};
  CLSIDFromString(std::wstring(text.begin(), text.end()).c_str(), &id);
  IClassFactory *factory = nullptr;
  const HRESULT found = call("DllGetClassObject", &id, &IID_IClassFactory, &factory);
  if (FAILED(found)) return found;
  factory->CreateInstance(nullptr, __uuidof(IThumbnailProvider), reinterpret_cast<void **>(provider));
  return factory->Release() == 0 ? S_OK : E_FAIL;
}

// Gives the bytes, or those of a stream, and lets go of it: nobody else may use it then.
HRESULT initialize(IThumbnailProvider *provider, const Bytes &bytes, IStream *stream = nullptr) {
  if (stream == nullptr) stream = SHCreateMemStream(bytes.data(), static_cast<UINT>(bytes.size()));
  IInitializeWithStream *target = nullptr;
  provider->QueryInterface(__uuidof(IInitializeWithStream), reinterpret_cast<void **>(&target));
  const HRESULT result = target->Initialize(stream, STGM_READ);
  target->Release();
  return stream->Release() == 0 ? result : E_FAIL;
}

// The thumbnail as a PNG file; empty if there is none.
Bytes thumbnailOf(IThumbnailProvider *provider, UINT side) {
  HBITMAP bitmap = nullptr;
  WTS_ALPHATYPE alpha = WTSAT_UNKNOWN;
  if (FAILED(provider->GetThumbnail(side, &bitmap, &alpha)) || alpha != WTSAT_RGB) return {};
  BITMAP measures{};
  GetObjectW(bitmap, sizeof measures, &measures);
  std::vector<uint32_t> words(static_cast<size_t>(measures.bmWidth * measures.bmHeight));
  GetBitmapBits(bitmap, static_cast<LONG>(4 * words.size()), words.data()); // top row first
  DeleteObject(bitmap);
  Bytes file;
  putPng({words, measures.bmWidth, measures.bmHeight}, {}, false, putInto(file));
  return measures.bmBitsPixel == 32 ? file : Bytes();
}

TEST(Thumbnails, AreThoseOfTheCommandLine) {
  const TemporaryFolder folder("thumbnails");
  for (const FileKind &kind : kFileKinds) {
    const std::string letters = kind.extension + 1, png = folder.path + "png";
    if (letters == "SCR" || letters == "DAT" || letters == "TGS" || letters == "GLC") continue; // .GLC: all are refused
    const std::string path = writeSample(folder, kind.extension);
    IThumbnailProvider *provider = nullptr;
    IStream *stream = nullptr;
    SHCreateStreamOnFileA(path.c_str(), STGM_READ | STGM_SHARE_DENY_WRITE, &stream);
    ASSERT_EQ(createProvider(letters, &provider), S_OK) << letters;
    ASSERT_EQ(initialize(provider, {}, stream), S_OK) << letters;
    for (const int32_t side : {64, 256, 1024}) {
      const std::string number = std::to_string(side);
      if (letters == "SC7") {
        _spawnl(_P_WAIT, cliPath.c_str(), "cli", "thumb", "--size", number.c_str(), path.c_str(), png.c_str(), nullptr);
      } else {
        writeSingleFile({.command = CliCommand::kThumb, .outPath = png, .size = side}, {.path = path});
      }
      const Bytes thumbnail = thumbnailOf(provider, static_cast<UINT>(side));
      EXPECT_TRUE(!thumbnail.empty() && thumbnail == folder.read(u8"png")) << letters << side;
    }
    EXPECT_TRUE(DeleteFileA(path.c_str())) << letters;
    provider->Release();
  }
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
  EXPECT_EQ(initialize(provider, Bytes((size_t{64} << 20) + 1)), HRESULT_FROM_WIN32(ERROR_FILE_TOO_LARGE));
  EXPECT_EQ(initialize(provider, Bytes{'A', 'B'}), S_OK);
  EXPECT_EQ(initialize(provider, Bytes{'A', 'B'}), HRESULT_FROM_WIN32(ERROR_ALREADY_INITIALIZED));
  EXPECT_EQ(provider->GetThumbnail(64, &bitmap, &alpha), WTS_E_FAILEDEXTRACTION);
  EXPECT_EQ(call("DllCanUnloadNow"), S_FALSE);
  provider->Release();
}

// Whether all are made, of one file.
bool makeThumbnails(int count, const Bytes &bytes) {
  bool made = true;
  for (IThumbnailProvider *provider = nullptr; made && count > 0; --count) {
    made = createProvider("SC5", &provider) == S_OK && initialize(provider, bytes) == S_OK &&
           !thumbnailOf(provider, 64).empty() && provider->Release() == 0;
  }
  return made;
}

TEST(Thumbnails, ThousandInTwoThreadsLeaveNothingBehind) {
  HANDLE handle = nullptr, handleBefore = nullptr; // Wine does not count them but takes the lowest one that is free
  PROCESS_MEMORY_COUNTERS memory{}, memoryBefore{};
  for (const bool again : {false, true}) {
    auto others = std::async(std::launch::async, makeThumbnails, 500, std::ref(sampleNamed("PLASMA.SC5").bytes));
    EXPECT_TRUE(makeThumbnails(500, sampleNamed("COAST.SC5").bytes) && others.get());
    CloseHandle((again ? handle : handleBefore) = CreateEventW(nullptr, FALSE, FALSE, nullptr));
    GetProcessMemoryInfo(GetCurrentProcess(), again ? &memory : &memoryBefore, sizeof memory);
  }
  EXPECT_EQ(handle, handleBefore);
  EXPECT_LT(memory.PagefileUsage, memoryBefore.PagefileUsage + 2'000'000); // 40 files or 120 bitmaps
  EXPECT_EQ(call("DllCanUnloadNow"), S_OK);
}

std::string userClasses() {
  const std::unique_ptr<FILE, int (*)(FILE *)> list(_popen("reg query HKCU\\Software\\Classes /s", "r"), _pclose);
  std::string text(100'000, ' ');
  text.resize(std::fread(text.data(), 1, text.size(), list.get()));
  return text;
}

TEST(Thumbnails, AreRegisteredWhereNobodyElseIs) {
  const std::string handler = "\\ShellEx\\{E357FCCD-A995-4576-B01F-234630154E96}", classes = "Software\\Classes\\";
  const auto set = [&](HKEY root, const std::string &key, const std::string &text) {
    RegSetKeyValueA(root, (classes + key).c_str(), nullptr, REG_SZ, text.c_str(), static_cast<DWORD>(text.size() + 1));
  };
  call("DllUnregisterServer");
  set(HKEY_CURRENT_USER, ".SC5" + handler, "{foreign}");
  set(HKEY_CURRENT_USER, ".SC8", "Program.Picture");
  set(HKEY_LOCAL_MACHINE, ".SC7" + handler, "{foreign}");
  const std::string before = userClasses();
  for (int twice = 0; twice < 2; ++twice) EXPECT_EQ(call("DllRegisterServer"), S_OK);
  const std::string during = userClasses(), sz = "    REG_SZ    ", inKey = "\n    (Default)" + sz;
  std::array<char, MAX_PATH> path{};
  GetModuleFileNameA(library, path.data(), path.size());
  EXPECT_NE(during.find(".SC8" + handler + inKey + classText("SC8") + "\n"), std::string::npos) << during;
  EXPECT_NE(during.find("CLSID\\" + classText("SC8") + "\\InprocServer32" + inKey + path.data() +
                        "\n    ThreadingModel" + sz + "Apartment\n"),
            std::string::npos);
  for (const char *letters : {"SC5", "SC7", "SCR"}) EXPECT_EQ(during.find(classText(letters)), std::string::npos);
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
