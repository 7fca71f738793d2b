#pragma once

/// Makes streams of the sound server stay with the output that they were opened on: one that goes away ends
/// them. It is so for the whole program from its start wherever this is linked in, which a call makes sure
/// of.
void PinPulseStreams();
