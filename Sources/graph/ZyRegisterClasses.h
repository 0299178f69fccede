#pragma once

namespace zy {

/// Makes every class of the charts known by its name, so that stored forms can create its objects, also those that the
/// program itself never mentions and a static library would leave out. A graph does it when it is made; a program that
/// reads forms before it has one calls this first. May be called again.
void RegisterChartClasses();

}  // namespace zy
