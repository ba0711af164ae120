// The end of the program when memory runs out.
#pragma once

// From now on an allocation that fails reports it and ends the program.
void endWhenOutOfMemory();
