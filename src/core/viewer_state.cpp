#include "core/viewer_state.h"

bool videoPlaying(const ViewerState &viewer) {
  return viewer.evaPlayer.playing == kTrue || viewer.vidPlayer.playing == kTrue;
}
