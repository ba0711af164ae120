// PlatformOps as plain calls.
#pragma once

#include "state/viewer_state.h"

inline void runPendingEvents(const ViewerState &viewer) { viewer.platform.runPendingEvents(viewer.platform.context); }

inline uint32_t tickCount(const ViewerState &viewer) { return viewer.platform.tickCount(viewer.platform.context); }

inline void waitForEvents(const ViewerState &viewer, uint32_t milliseconds) {
  viewer.platform.waitForEvents(viewer.platform.context, milliseconds);
}

// Hands over the rendered picture.
inline void presentPicture(const ViewerState &viewer) {
  viewer.platform.presentPicture(viewer.platform.context, viewer.frameBits, viewer.frameWidth, viewer.frameHeight);
}

inline void showMessage(const ViewerState &viewer, const std::string &title, const std::string &text,
                        MessageIcon icon) {
  viewer.platform.showMessage(viewer.platform.context, title, text, icon);
}

inline bool askYesNo(const ViewerState &viewer, const std::string &title, const std::string &text) {
  return viewer.platform.askYesNo(viewer.platform.context, title, text);
}

inline void showText(const ViewerState &viewer, const std::string &title, const std::string &text) {
  viewer.platform.showText(viewer.platform.context, title, text);
}

inline std::string readSetting(const ViewerState &viewer, const std::string &key) {
  return viewer.platform.readSetting(viewer.platform.context, key);
}

inline void writeSetting(const ViewerState &viewer, const std::string &key, const std::string &value) {
  viewer.platform.writeSetting(viewer.platform.context, key, value);
}

inline void deleteSetting(const ViewerState &viewer, const std::string &key) {
  viewer.platform.deleteSetting(viewer.platform.context, key);
}

inline std::optional<std::string> readValue(const ViewerState &viewer, const std::string &name) {
  return viewer.platform.readValue(viewer.platform.context, name);
}

inline void writeValue(const ViewerState &viewer, const std::string &name, const std::string &value) {
  viewer.platform.writeValue(viewer.platform.context, name, value);
}

inline void notifyAssociations(const ViewerState &viewer) {
  viewer.platform.notifyAssociations(viewer.platform.context);
}

inline std::string programPath(const ViewerState &viewer) {
  return viewer.platform.programPath(viewer.platform.context);
}
