// Memory that runs out: one policy for the whole program.
//
// What lists, records and indexes are made of comes from malloc and its kin. Where that fails, what has been made so far is freed
// and the answer is 0 or null; whoever asked tells it, with MemoryError unless there is a text of its own, and goes on without the
// record, which the report then lacks. A baseline that such a run makes isn't kept (baseline_failed): the one before stays. Only a
// notice that can't be remembered for the summary is left away in silence, as it has been printed and counted.
//
// The containers of the library know no such answer: without exceptions, a std::string or std::vector that gets no memory ends the
// run, with the same message and status 1. Nothing of the user's is half written then: sources, baselines and settings are written
// beside their places, and renamed when they are whole.
#pragma once

struct Globals;

// Tells that memory is out.
void MemoryError(Globals *G);
// From here on the end that the containers bring about is told.
void TellWhenContainersFail();
