// What the page gives the module: its files, a clock, sound and dialogs. Texts are UTF-8 with their length in bytes.
#pragma once

#include <cstdint>
#include <string_view>

#define PAGE_CALL(name) __attribute__((import_module("page"), import_name(#name)))

extern "C" {

// What the page holds under that name: 0 nothing, 1 a file, 2 a folder.
PAGE_CALL(holds) int32_t pageHolds(const char *path, size_t pathBytes);

// Opens a file that the page holds. Returns its number; -1 if it holds no bytes of that name.
PAGE_CALL(openFile) int32_t pageOpenFile(const char *path, size_t pathBytes);
PAGE_CALL(fileLength) uint32_t pageFileLength(int32_t file);
PAGE_CALL(readFile) uint32_t pageReadFile(int32_t file, uint32_t offset, uint8_t *into, uint32_t count);
PAGE_CALL(closeFile) void pageCloseFile(int32_t file);

// Puts the names of the files of a folder into the room for texts, each ended by a NUL. Returns their bytes.
PAGE_CALL(listFolder) size_t pageListFolder(const char *folder, size_t folderBytes);

// Appends bytes to the file that is being saved; ends it, and gives it to the user if `keep` is not 0.
PAGE_CALL(putBytes) void pagePutBytes(const uint8_t *bytes, size_t count);
PAGE_CALL(endFile) void pageEndFile(const char *name, size_t nameBytes, int32_t keep);

// Puts the bytes of a PNG file onto the clipboard.
PAGE_CALL(copyPng) void pageCopyPng(const uint8_t *bytes, size_t count);

PAGE_CALL(milliseconds) uint32_t pageMilliseconds();

// Plays samples, unsigned 8 bits mono, after those before; the first ones after stopSound() start the sound.
PAGE_CALL(playSamples) void pagePlaySamples(const uint8_t *samples, size_t count, uint32_t rate);
PAGE_CALL(holdSound) void pageHoldSound();
PAGE_CALL(resumeSound) void pageResumeSound();
PAGE_CALL(stopSound) void pageStopSound();

// Shows a text in a dialog, as PlatformOps::showText does.
PAGE_CALL(showText) void pageShowText(const char *title, size_t titleBytes, const char *text, size_t textBytes);

// Asks the user for files to open.
PAGE_CALL(chooseFiles) void pageChooseFiles();

// There is not enough memory: does not return, the page discards the module.
PAGE_CALL(outOfMemory) void pageOutOfMemory();
}
