// The RenderMan Interface procedural binding under its published names.
//
// Every call with a parameter list has two forms: the plain one takes
// (token, value) pairs ended by RI_NULL, the V form a count and two arrays.
// Names may be given as text or as the RI_* tokens; text that nobody declared
// is taken for a name (a shader, a coordinate system) and declared on the way
// as a uniform string.
//
// Values are read, never kept: every pointer argument need only live for the
// length of the call. A parameter value must hold the items its token and the
// primitive call for (one element of the token's size outside geometry), as
// the scene library reads exactly that many.
#pragma once

#include "interface/error.h"  // RiLastError, the handlers, RiErrorHandler
#include "interface/ritypes.h"
#include "interface/token.h"  // the predeclared RI_* tokens, RiDeclare

// --- Standard bases and filters ----------------------------------------------
// They stand for the library's own matrices and filters and are told apart by
// address only: their contents are all zero and the filters return 0.

extern RtBasis RiBezierBasis, RiBSplineBasis, RiCatmullRomBasis, RiHermiteBasis, RiPowerBasis;

RtFloat RiGaussianFilter(RtFloat x, RtFloat y, RtFloat xwidth, RtFloat ywidth);
RtFloat RiBoxFilter(RtFloat x, RtFloat y, RtFloat xwidth, RtFloat ywidth);
RtFloat RiTriangleFilter(RtFloat x, RtFloat y, RtFloat xwidth, RtFloat ywidth);
RtFloat RiCatmullRomFilter(RtFloat x, RtFloat y, RtFloat xwidth, RtFloat ywidth);
RtFloat RiSincFilter(RtFloat x, RtFloat y, RtFloat xwidth, RtFloat ywidth);

// --- Frame, camera and output options ----------------------------------------

RtVoid RiBegin(RtToken name);
RtVoid RiEnd();
RtVoid RiFrameBegin(RtInt number);
RtVoid RiFrameEnd();
RtVoid RiWorldBegin();
RtVoid RiWorldEnd();

RtVoid RiFormat(RtInt xresolution, RtInt yresolution, RtFloat pixelaspectratio);
RtVoid RiFrameAspectRatio(RtFloat frameaspectratio);
RtVoid RiScreenWindow(RtFloat left, RtFloat right, RtFloat bottom, RtFloat top);
RtVoid RiCropWindow(RtFloat xmin, RtFloat xmax, RtFloat ymin, RtFloat ymax);
RtVoid RiProjection(RtToken name, ...);
RtVoid RiProjectionV(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]);
RtVoid RiClipping(RtFloat hither, RtFloat yon);
RtVoid RiDepthOfField(RtFloat fstop, RtFloat focallength, RtFloat focaldistance);
RtVoid RiShutter(RtFloat min, RtFloat max);

RtVoid RiPixelVariance(RtFloat variation);
RtVoid RiPixelSamples(RtFloat xsamples, RtFloat ysamples);
RtVoid RiPixelFilter(RtFilterFunc function, RtFloat xwidth, RtFloat ywidth);
RtVoid RiExposure(RtFloat gain, RtFloat gamma);
RtVoid RiImager(RtToken name, ...);
RtVoid RiImagerV(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]);
RtVoid RiQuantize(RtToken type, RtInt one, RtInt min, RtInt max, RtFloat ditheramplitude);
RtVoid RiDisplay(char* name, RtToken type, RtToken mode, ...);
RtVoid RiDisplayV(char* name, RtToken type, RtToken mode, RtInt n, RtToken tokens[],
                  RtPointer values[]);
RtVoid RiHider(RtToken type, ...);
RtVoid RiHiderV(RtToken type, RtInt n, RtToken tokens[], RtPointer values[]);
RtVoid RiColorSamples(RtInt n, RtFloat nRGB[], RtFloat RGBn[]);
RtVoid RiRelativeDetail(RtFloat relativedetail);
RtVoid RiOption(RtToken name, ...);
RtVoid RiOptionV(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]);

// --- Attributes ----------------------------------------------------------------

RtVoid RiAttributeBegin();
RtVoid RiAttributeEnd();
RtVoid RiColor(RtColor color);
RtVoid RiOpacity(RtColor color);
RtVoid RiTextureCoordinates(RtFloat s1, RtFloat t1, RtFloat s2, RtFloat t2, RtFloat s3, RtFloat t3,
                            RtFloat s4, RtFloat t4);

RtLightHandle RiLightSource(RtToken name, ...);
RtLightHandle RiLightSourceV(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]);
RtLightHandle RiAreaLightSource(RtToken name, ...);
RtLightHandle RiAreaLightSourceV(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]);
RtVoid RiIlluminate(RtLightHandle light, RtBoolean onoff);

RtVoid RiSurface(RtToken name, ...);
RtVoid RiSurfaceV(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]);
RtVoid RiAtmosphere(RtToken name, ...);
RtVoid RiAtmosphereV(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]);
RtVoid RiInterior(RtToken name, ...);
RtVoid RiInteriorV(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]);
RtVoid RiExterior(RtToken name, ...);
RtVoid RiExteriorV(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]);

RtVoid RiShadingRate(RtFloat size);
RtVoid RiShadingInterpolation(RtToken type);
RtVoid RiMatte(RtBoolean onoff);
RtVoid RiBound(RtBound bound);
RtVoid RiDetail(RtBound bound);
RtVoid RiDetailRange(RtFloat minvisible, RtFloat lowertransition, RtFloat uppertransition,
                     RtFloat maxvisible);
RtVoid RiGeometricApproximation(RtToken type, RtFloat value);
RtVoid RiOrientation(RtToken orientation);
RtVoid RiReverseOrientation();
RtVoid RiSides(RtInt sides);
RtVoid RiAttribute(RtToken name, ...);
RtVoid RiAttributeV(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]);

// --- Transformations -------------------------------------------------------------

RtVoid RiIdentity();
RtVoid RiTransform(RtMatrix transform);
RtVoid RiConcatTransform(RtMatrix transform);
RtVoid RiPerspective(RtFloat fov);
RtVoid RiTranslate(RtFloat dx, RtFloat dy, RtFloat dz);
RtVoid RiRotate(RtFloat angle, RtFloat dx, RtFloat dy, RtFloat dz);
RtVoid RiScale(RtFloat sx, RtFloat sy, RtFloat sz);
RtVoid RiSkew(RtFloat angle, RtFloat dx1, RtFloat dy1, RtFloat dz1, RtFloat dx2, RtFloat dy2,
              RtFloat dz2);
RtVoid RiDeformation(RtToken name, ...);
RtVoid RiDeformationV(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]);
RtVoid RiDisplacement(RtToken name, ...);
RtVoid RiDisplacementV(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]);
RtVoid RiCoordinateSystem(RtToken space);
RtPoint* RiTransformPoints(RtToken fromspace, RtToken tospace, RtInt n, RtPoint points[]);
RtVoid RiTransformBegin();
RtVoid RiTransformEnd();

// --- Geometry --------------------------------------------------------------------

RtVoid RiPolygon(RtInt nverts, ...);
RtVoid RiPolygonV(RtInt nverts, RtInt n, RtToken tokens[], RtPointer values[]);
RtVoid RiGeneralPolygon(RtInt nloops, RtInt nverts[], ...);
RtVoid RiGeneralPolygonV(RtInt nloops, RtInt nverts[], RtInt n, RtToken tokens[],
                         RtPointer values[]);
RtVoid RiPointsPolygons(RtInt npolys, RtInt nverts[], RtInt verts[], ...);
RtVoid RiPointsPolygonsV(RtInt npolys, RtInt nverts[], RtInt verts[], RtInt n, RtToken tokens[],
                         RtPointer values[]);
RtVoid RiPointsGeneralPolygons(RtInt npolys, RtInt nloops[], RtInt nverts[], RtInt verts[], ...);
RtVoid RiPointsGeneralPolygonsV(RtInt npolys, RtInt nloops[], RtInt nverts[], RtInt verts[],
                                RtInt n, RtToken tokens[], RtPointer values[]);

RtVoid RiBasis(RtBasis ubasis, RtInt ustep, RtBasis vbasis, RtInt vstep);
RtVoid RiPatch(RtToken type, ...);
RtVoid RiPatchV(RtToken type, RtInt n, RtToken tokens[], RtPointer values[]);
RtVoid RiPatchMesh(RtToken type, RtInt nu, RtToken uwrap, RtInt nv, RtToken vwrap, ...);
RtVoid RiPatchMeshV(RtToken type, RtInt nu, RtToken uwrap, RtInt nv, RtToken vwrap, RtInt n,
                    RtToken tokens[], RtPointer values[]);
RtVoid RiNuPatch(RtInt nu, RtInt uorder, RtFloat uknot[], RtFloat umin, RtFloat umax, RtInt nv,
                 RtInt vorder, RtFloat vknot[], RtFloat vmin, RtFloat vmax, ...);
RtVoid RiNuPatchV(RtInt nu, RtInt uorder, RtFloat uknot[], RtFloat umin, RtFloat umax, RtInt nv,
                  RtInt vorder, RtFloat vknot[], RtFloat vmin, RtFloat vmax, RtInt n,
                  RtToken tokens[], RtPointer values[]);
RtVoid RiTrimCurve(RtInt nloops, RtInt ncurves[], RtInt order[], RtFloat knot[], RtFloat min[],
                   RtFloat max[], RtInt n[], RtFloat u[], RtFloat v[], RtFloat w[]);

RtVoid RiSphere(RtFloat radius, RtFloat zmin, RtFloat zmax, RtFloat thetamax, ...);
RtVoid RiSphereV(RtFloat radius, RtFloat zmin, RtFloat zmax, RtFloat thetamax, RtInt n,
                 RtToken tokens[], RtPointer values[]);
RtVoid RiCone(RtFloat height, RtFloat radius, RtFloat thetamax, ...);
RtVoid RiConeV(RtFloat height, RtFloat radius, RtFloat thetamax, RtInt n, RtToken tokens[],
               RtPointer values[]);
RtVoid RiCylinder(RtFloat radius, RtFloat zmin, RtFloat zmax, RtFloat thetamax, ...);
RtVoid RiCylinderV(RtFloat radius, RtFloat zmin, RtFloat zmax, RtFloat thetamax, RtInt n,
                   RtToken tokens[], RtPointer values[]);
RtVoid RiHyperboloid(RtPoint point1, RtPoint point2, RtFloat thetamax, ...);
RtVoid RiHyperboloidV(RtPoint point1, RtPoint point2, RtFloat thetamax, RtInt n, RtToken tokens[],
                      RtPointer values[]);
RtVoid RiParaboloid(RtFloat rmax, RtFloat zmin, RtFloat zmax, RtFloat thetamax, ...);
RtVoid RiParaboloidV(RtFloat rmax, RtFloat zmin, RtFloat zmax, RtFloat thetamax, RtInt n,
                     RtToken tokens[], RtPointer values[]);
RtVoid RiDisk(RtFloat height, RtFloat radius, RtFloat thetamax, ...);
RtVoid RiDiskV(RtFloat height, RtFloat radius, RtFloat thetamax, RtInt n, RtToken tokens[],
               RtPointer values[]);
RtVoid RiTorus(RtFloat majorradius, RtFloat minorradius, RtFloat phimin, RtFloat phimax,
               RtFloat thetamax, ...);
RtVoid RiTorusV(RtFloat majorradius, RtFloat minorradius, RtFloat phimin, RtFloat phimax,
                RtFloat thetamax, RtInt n, RtToken tokens[], RtPointer values[]);

RtVoid RiProcedural(RtPointer data, RtBound bound, RtVoid (*subdivfunc)(RtPointer, RtFloat),
                    RtVoid (*freefunc)(RtPointer));
// The standard generators a Procedural call may name, with their data: an
// array of two strings (program or library, and its arguments) for
// RiProcRunProgram and RiProcDynamicLoad, of one (the file) for
// RiProcDelayedReadArchive. This layer expands no procedural: it hands the
// call to the scene as it stands, and the three do nothing when called.
RtVoid RiProcDelayedReadArchive(RtPointer data, RtFloat detail);
RtVoid RiProcRunProgram(RtPointer data, RtFloat detail);
RtVoid RiProcDynamicLoad(RtPointer data, RtFloat detail);
RtVoid RiProcFree(RtPointer data);
// A generator named by text, with its parameter list; kept, not expanded.
RtVoid RiProcedural2V(RtToken generator, RtToken bounder, RtInt n, RtToken tokens[],
                      RtPointer values[]);
// A command for the renderer's shell; kept in the scene, never run.
RtVoid RiSystem(RtString command);
RtVoid RiGeometry(RtToken type, ...);
RtVoid RiGeometryV(RtToken type, RtInt n, RtToken tokens[], RtPointer values[]);

// Geometry of later versions. A subdivision mesh's nargs holds 2 numbers per
// tag (how many intargs and floatargs it takes), a hierarchical one's 3 (and
// how many stringargs). Cubic curves step by the v step of the last RiBasis.
// A blobby's code indexes its floats and strings (see the scene format).
RtVoid RiSubdivisionMesh(RtToken scheme, RtInt nfaces, RtInt nvertices[], RtInt vertices[],
                         RtInt ntags, RtToken tags[], RtInt nargs[], RtInt intargs[],
                         RtFloat floatargs[], ...);
RtVoid RiSubdivisionMeshV(RtToken scheme, RtInt nfaces, RtInt nvertices[], RtInt vertices[],
                          RtInt ntags, RtToken tags[], RtInt nargs[], RtInt intargs[],
                          RtFloat floatargs[], RtInt n, RtToken tokens[], RtPointer values[]);
RtVoid RiHierarchicalSubdivisionMesh(RtToken scheme, RtInt nfaces, RtInt nvertices[],
                                     RtInt vertices[], RtInt ntags, RtToken tags[], RtInt nargs[],
                                     RtInt intargs[], RtFloat floatargs[], RtToken stringargs[],
                                     ...);
RtVoid RiHierarchicalSubdivisionMeshV(RtToken scheme, RtInt nfaces, RtInt nvertices[],
                                      RtInt vertices[], RtInt ntags, RtToken tags[], RtInt nargs[],
                                      RtInt intargs[], RtFloat floatargs[], RtToken stringargs[],
                                      RtInt n, RtToken tokens[], RtPointer values[]);
RtVoid RiPoints(RtInt npoints, ...);
RtVoid RiPointsV(RtInt npoints, RtInt n, RtToken tokens[], RtPointer values[]);
RtVoid RiCurves(RtToken type, RtInt ncurves, RtInt nvertices[], RtToken wrap, ...);
RtVoid RiCurvesV(RtToken type, RtInt ncurves, RtInt nvertices[], RtToken wrap, RtInt n,
                 RtToken tokens[], RtPointer values[]);
RtVoid RiBlobby(RtInt nleaf, RtInt ncode, RtInt code[], RtInt nfloats, RtFloat floats[],
                RtInt nstrings, RtToken strings[], ...);
RtVoid RiBlobbyV(RtInt nleaf, RtInt ncode, RtInt code[], RtInt nfloats, RtFloat floats[],
                 RtInt nstrings, RtToken strings[], RtInt n, RtToken tokens[], RtPointer values[]);

// --- Blocks ------------------------------------------------------------------------
// Inside a motion block only the first motion-sensitive call takes effect.

RtVoid RiSolidBegin(RtToken operation);
RtVoid RiSolidEnd();
RtObjectHandle RiObjectBegin();
RtVoid RiObjectEnd();
RtVoid RiObjectInstance(RtObjectHandle handle);
RtVoid RiMotionBegin(RtInt n, ...);
RtVoid RiMotionBeginV(RtInt n, RtFloat times[]);
RtVoid RiMotionEnd();

// --- Texture files and comments -------------------------------------------------
// No image file is made: the texture calls take their arguments and do nothing.

RtVoid RiMakeTexture(char* picturename, char* texturename, RtToken swrap, RtToken twrap,
                     RtFilterFunc filterfunc, RtFloat swidth, RtFloat twidth, ...);
RtVoid RiMakeTextureV(char* picturename, char* texturename, RtToken swrap, RtToken twrap,
                      RtFilterFunc filterfunc, RtFloat swidth, RtFloat twidth, RtInt n,
                      RtToken tokens[], RtPointer values[]);
RtVoid RiMakeBump(char* picturename, char* texturename, RtToken swrap, RtToken twrap,
                  RtFilterFunc filterfunc, RtFloat swidth, RtFloat twidth, ...);
RtVoid RiMakeBumpV(char* picturename, char* texturename, RtToken swrap, RtToken twrap,
                   RtFilterFunc filterfunc, RtFloat swidth, RtFloat twidth, RtInt n,
                   RtToken tokens[], RtPointer values[]);
RtVoid RiMakeLatLongEnvironment(char* picturename, char* texturename, RtFilterFunc filterfunc,
                                RtFloat swidth, RtFloat twidth, ...);
RtVoid RiMakeLatLongEnvironmentV(char* picturename, char* texturename, RtFilterFunc filterfunc,
                                 RtFloat swidth, RtFloat twidth, RtInt n, RtToken tokens[],
                                 RtPointer values[]);
RtVoid RiMakeCubeFaceEnvironment(char* px, char* nx, char* py, char* ny, char* pz, char* nz,
                                 char* texturename, RtFloat fov, RtFilterFunc filterfunc,
                                 RtFloat swidth, RtFloat twidth, ...);
RtVoid RiMakeCubeFaceEnvironmentV(char* px, char* nx, char* py, char* ny, char* pz, char* nz,
                                  char* texturename, RtFloat fov, RtFilterFunc filterfunc,
                                  RtFloat swidth, RtFloat twidth, RtInt n, RtToken tokens[],
                                  RtPointer values[]);
RtVoid RiMakeShadow(char* picturename, char* texturename, ...);
RtVoid RiMakeShadowV(char* picturename, char* texturename, RtInt n, RtToken tokens[],
                     RtPointer values[]);

// Writes a "comment" record (format and arguments as for printf, cut at 255
// bytes); any other type, "structure" included, is dropped.
RtVoid RiArchiveRecord(RtToken type, char* format, ...);

// --- Requests of later versions: shading, cameras, scene blocks ------------------
// Each is recorded as it stands. The plain forms take their parameter list
// after the fixed arguments, ended by RI_NULL, as every other call does.

// Shading nodes of path-tracing renderers: a plugin's name, the node's handle,
// its parameters.
#define RI_SHADING_NODE(name)                         \
  RtVoid Ri##name(RtToken type, RtToken handle, ...); \
  RtVoid Ri##name##V(RtToken type, RtToken handle, RtInt n, RtToken tokens[], RtPointer values[]);
RI_SHADING_NODE(Bxdf)
RI_SHADING_NODE(Pattern)
RI_SHADING_NODE(Light)
RI_SHADING_NODE(Integrator)
RI_SHADING_NODE(Displace)
RI_SHADING_NODE(DisplayFilter)
RI_SHADING_NODE(SampleFilter)
RI_SHADING_NODE(LightFilter)
RI_SHADING_NODE(Shader)
#undef RI_SHADING_NODE

// Turns the Light node of the handle on or off for the current attributes.
RtVoid RiIlluminateLight(RtToken handle, RtBoolean onoff);

RtVoid RiCamera(RtToken name, ...);
RtVoid RiCameraV(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]);
RtVoid RiCoordSysTransform(RtToken space);
// As RiCoordinateSystem, for the enclosing attribute or transform block only.
RtVoid RiScopedCoordinateSystem(RtToken space);
RtVoid RiClippingPlane(RtFloat x, RtFloat y, RtFloat z, RtFloat nx, RtFloat ny, RtFloat nz);
RtVoid RiGeometricRepresentation(RtToken type);
RtVoid RiDisplayChannel(RtToken declaration, ...);
RtVoid RiDisplayChannelV(RtToken declaration, RtInt n, RtToken tokens[], RtPointer values[]);
RtVoid RiMakeBrickMap(RtInt nptc, RtString ptcnames[], RtString bkmname, ...);
RtVoid RiMakeBrickMapV(RtInt nptc, RtString ptcnames[], RtString bkmname, RtInt n, RtToken tokens[],
                       RtPointer values[]);

RtVoid RiResource(RtToken handle, RtToken type, ...);
RtVoid RiResourceV(RtToken handle, RtToken type, RtInt n, RtToken tokens[], RtPointer values[]);
RtVoid RiResourceBegin();
RtVoid RiResourceEnd();
// Conditional blocks: the expressions test the renderer's options, so every
// branch is recorded.
RtVoid RiIfBegin(RtString expression);
RtVoid RiElseIf(RtString expression);
RtVoid RiElse();
RtVoid RiIfEnd();
RtVoid RiEditBegin(RtToken type, ...);
RtVoid RiEditBeginV(RtToken type, RtInt n, RtToken tokens[], RtPointer values[]);
RtVoid RiEditEnd();
// These two have no fixed argument: the plain form's list starts at `token`
// (RI_NULL there: no parameters).
RtVoid RiEditWorldBegin(RtToken token, ...);
RtVoid RiEditWorldBeginV(RtInt n, RtToken tokens[], RtPointer values[]);
RtVoid RiEditWorldEnd();
RtVoid RiEditAttributeBegin(RtToken token, ...);
RtVoid RiEditAttributeBeginV(RtInt n, RtToken tokens[], RtPointer values[]);
RtVoid RiEditAttributeEnd();

// Classic requests by the names that later versions added and these calls'
// classic forms refuse: any filter, projection, hider, display type or mode,
// kept by name. A display name beginning with '+' is an additional output.
RtVoid RiNamedPixelFilter(RtToken name, RtFloat xwidth, RtFloat ywidth);
RtVoid RiNamedProjection(RtToken name, ...);
RtVoid RiNamedProjectionV(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]);
RtVoid RiNamedHider(RtToken name, ...);
RtVoid RiNamedHiderV(RtToken name, RtInt n, RtToken tokens[], RtPointer values[]);
RtVoid RiNamedDisplay(char* name, RtToken type, RtToken mode, ...);
RtVoid RiNamedDisplayV(char* name, RtToken type, RtToken mode, RtInt n, RtToken tokens[],
                       RtPointer values[]);
