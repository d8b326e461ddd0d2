#pragma once

// The cases, by area; each registers its pairs of case and baseline.
void RegisterOpenCases();
void RegisterImageCases();
void RegisterRepairCases();
void RegisterForceVolumeCases();
