// The two sounds that answer a reply, each drawn among the files of its folder.
#pragma once

// Both return at once. With `SuoniAttivi` false there is no draw and no look at the folder.
void SuonoEsatto();
void SuonoErrato();
