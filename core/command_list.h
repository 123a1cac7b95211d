// The list of all commands by their descriptors, one line each, in the order in which a click on a
// tool is compared with their names. A descriptor stands in the room that its line says; whatever
// deals with commands is made from this list.
// Owns: TESSIMO_COMMANDS, TESSIMO_NONE, TESSIMO_CORE_COMMANDS, TESSIMO_DISPLAY_COMMANDS,
//       TESSIMO_DRAFTING_COMMANDS, TESSIMO_TOOLPATH_COMMANDS, TESSIMO_IMPORT_COMMANDS,
//       TESSIMO_SHELL_COMMANDS.
#pragma once

#define TESSIMO_COMMANDS(CORE, DISPLAY, DRAFTING, TOOLPATH, IMPORT, SHELL) \
  CORE(kNewCommand)                                                        \
  CORE(kOpenCommand)                                                       \
  CORE(kRevertCommand)                                                     \
  IMPORT(kImportDxfCommand)                                                \
  CORE(kSaveCommand)                                                       \
  CORE(kSaveAsCommand)                                                     \
  CORE(kDeleteFileCommand)                                                 \
  SHELL(kPrintCommand)                                                     \
  SHELL(kPrintPreviewCommand)                                              \
  SHELL(kPrintToScaleCommand)                                              \
  CORE(kExitCommand)                                                       \
                                                                           \
  DRAFTING(kUndoCommand)                                                   \
  DRAFTING(kEditPathsCommand)                                              \
  DRAFTING(kRedoCommand)                                                   \
  DRAFTING(kDeleteCommand)                                                 \
  DRAFTING(kCutCommand)                                                    \
  DRAFTING(kCopyCommand)                                                   \
  DRAFTING(kPasteCommand)                                                  \
  DRAFTING(kFlipArcCommand)                                                \
  DRAFTING(kReverseArcCommand)                                             \
  DRAFTING(kJoinCommand)                                                   \
  DRAFTING(kMoveEndCommand)                                                \
  DRAFTING(kBreakCommand)                                                  \
  DRAFTING(kJoinArcCommand)                                                \
  DRAFTING(kDeleteVertexCommand)                                           \
  DRAFTING(kChangeRadiusCommand)                                           \
  DRAFTING(kMoveCommand)                                                   \
  DRAFTING(kFilletCommand)                                                 \
  DRAFTING(kSetOriginCommand)                                              \
  DRAFTING(kTrimCommand)                                                   \
  DRAFTING(kEnterPositionCommand)                                          \
  DRAFTING(kEntityInfoCommand)                                             \
  DRAFTING(kScaleDrawingCommand)                                           \
  DRAFTING(kMirrorCommand)                                                 \
  DRAFTING(kRotateCommand)                                                 \
  TOOLPATH(kReversePathCommand)                                            \
                                                                           \
  DRAFTING(kLineCommand)                                                   \
  DRAFTING(kRectangleCommand)                                              \
  DRAFTING(kArc3PCommand)                                                  \
  DRAFTING(kArcC2PCommand)                                                 \
  DRAFTING(kCircle3PCommand)                                               \
  DRAFTING(kCircleC1PCommand)                                              \
  TOOLPATH(kBoltCircleCommand)                                             \
  IMPORT(kTextCommand)                                                     \
  SHELL(kToolChestCommand)                                                 \
  DRAFTING(kMeasureCommand)                                                \
  DRAFTING(kSelectCommand)                                                 \
  DRAFTING(kUnselectCommand)                                               \
  DRAFTING(kSelectContiguousCommand)                                       \
  DRAFTING(kUnselectContiguousCommand)                                     \
  DRAFTING(kSelectAllCommand)                                              \
  DRAFTING(kUnselectAllCommand)                                            \
                                                                           \
  DISPLAY(kRedrawCommand)                                                  \
  DISPLAY(kCenterCommand)                                                  \
  DISPLAY(kZoomInCommand)                                                  \
  DISPLAY(kZoomOutCommand)                                                 \
  DISPLAY(kZoomWindowCommand)                                              \
  DISPLAY(kZoomExtentsCommand)                                             \
  DISPLAY(kFullViewCommand)                                                \
  DISPLAY(kPanCommand)                                                     \
  DISPLAY(kShowPartTemplateCommand)                                        \
  DISPLAY(kShowEndMarkersCommand)                                          \
  DISPLAY(kShowToolPathsCommand)                                           \
  DISPLAY(kToolRadiusOutlineCommand)                                       \
  DISPLAY(kPathDirectionCommand)                                           \
  DISPLAY(kPathColorsCommand)                                              \
                                                                           \
  SHELL(kTitleBlockCommand)                                                \
  SHELL(kCncSetupCommand)                                                  \
  DRAFTING(kGridSetupCommand)                                              \
  SHELL(kPrinterOptionsCommand)                                            \
  CORE(kSaveAsDefaultCommand)                                              \
  CORE(kRevertToDefaultsCommand)                                           \
  CORE(kLoadSetupCommand)                                                  \
  SHELL(kChooseControlCommand)                                             \
  CORE(kSaveSetupCommand)                                                  \
  CORE(kSaveSetupAsCommand)                                                \
  SHELL(kLoadLayoutCommand)                                                \
  SHELL(kCustomizeCommand)                                                 \
  SHELL(kSaveLayoutAsCommand)                                              \
                                                                           \
  SHELL(kSelectToolCommand)                                                \
  TOOLPATH(kPocketingSpecsCommand)                                         \
  TOOLPATH(kVerifyPocketCommand)                                           \
  TOOLPATH(kVerifyIslandCommand)                                           \
  TOOLPATH(kRoughCutPocketCommand)                                         \
  TOOLPATH(kPlaceFinishPathCommand)                                        \
  TOOLPATH(kPlaceOnePathCommand)                                           \
  TOOLPATH(kAddMachineCycleCommand)                                        \
  TOOLPATH(kUndoLastPlaceCommand)                                          \
  TOOLPATH(kEditPathCommand)                                               \
  TOOLPATH(kClearAllPathsCommand)                                          \
  SHELL(kMakeMillFileCommand)                                              \
  SHELL(kMakeLatheFileCommand)                                             \
  SHELL(kBrowseCncFileCommand)                                             \
  TOOLPATH(kQuickPlaceCommand)                                             \
                                                                           \
  SHELL(kContentsCommand)                                                  \
  SHELL(kSearchCommand)                                                    \
  SHELL(kKeysCommand)                                                      \
  SHELL(kExamplesCommand)                                                  \
  SHELL(kAboutCommand)                                                     \
                                                                           \
  DRAFTING(kVisualGridCommand)                                             \
  DRAFTING(kCursorGridCommand)                                             \
  DRAFTING(kObjectSnapCommand)                                             \
                                                                           \
  DRAFTING(kSnapEndpointsCommand)                                          \
  DRAFTING(kSnapCenterCommand)                                             \
  DRAFTING(kSnapMidpointCommand)                                           \
  DRAFTING(kSnapQuadrantCommand)                                           \
  DRAFTING(kSnapPerpendicularCommand)                                      \
  DRAFTING(kSnapEndpointsOnceCommand)                                      \
  DRAFTING(kSnapCenterOnceCommand)                                         \
  DRAFTING(kSnapMidpointOnceCommand)                                       \
  DRAFTING(kSnapQuadrantOnceCommand)                                       \
  DRAFTING(kSnapPerpendicularOnceCommand)                                  \
                                                                           \
  TOOLPATH(kGougeAvoidanceCommand)                                         \
  DRAFTING(kCleanupCommand)                                                \
  TOOLPATH(kShowPathsCommand)                                              \
  TOOLPATH(kHidePathsCommand)                                              \
                                                                           \
  SHELL(kStatisticsCommand)                                                \
  SHELL(kPropertiesCommand)                                                \
  SHELL(kPathProofCommand)                                                 \
  SHELL(kShowPathProofCommand)

#define TESSIMO_NONE(descriptor)
#define TESSIMO_CORE_COMMANDS(DO) \
  TESSIMO_COMMANDS(DO, TESSIMO_NONE, TESSIMO_NONE, TESSIMO_NONE, TESSIMO_NONE, TESSIMO_NONE)
#define TESSIMO_DISPLAY_COMMANDS(DO) \
  TESSIMO_COMMANDS(TESSIMO_NONE, DO, TESSIMO_NONE, TESSIMO_NONE, TESSIMO_NONE, TESSIMO_NONE)
#define TESSIMO_DRAFTING_COMMANDS(DO) \
  TESSIMO_COMMANDS(TESSIMO_NONE, TESSIMO_NONE, DO, TESSIMO_NONE, TESSIMO_NONE, TESSIMO_NONE)
#define TESSIMO_TOOLPATH_COMMANDS(DO) \
  TESSIMO_COMMANDS(TESSIMO_NONE, TESSIMO_NONE, TESSIMO_NONE, DO, TESSIMO_NONE, TESSIMO_NONE)
#define TESSIMO_IMPORT_COMMANDS(DO) \
  TESSIMO_COMMANDS(TESSIMO_NONE, TESSIMO_NONE, TESSIMO_NONE, TESSIMO_NONE, DO, TESSIMO_NONE)
#define TESSIMO_SHELL_COMMANDS(DO) \
  TESSIMO_COMMANDS(TESSIMO_NONE, TESSIMO_NONE, TESSIMO_NONE, TESSIMO_NONE, TESSIMO_NONE, DO)
