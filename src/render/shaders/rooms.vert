#version 330 core
// Each vertex names its face's texture and its corner in it; the corner's
// place in the tiles comes from the texture table, so an edited rectangle
// needs the table sent again, never the vertices.
layout(location = 0) in vec3 aPosition;
layout(location = 1) in uint aTexture;
layout(location = 2) in uint aCorner;
layout(location = 3) in uint aFace;

uniform mat4 uViewProjection;
uniform sampler2D uTable;
uniform int uTextureCount;
uniform int uPass; // 0 opaque faces, 1 blended faces, 2 face numbers for picking

out vec2 vTexel;
flat out float vTile;
flat out float vHighlight;
flat out float vPresent;
flat out uint vFace;

const int PerRow = 256;
const int TexelsPerTexture = 5;

void main()
{
    int texture = int(aTexture);
    ivec2 base = ivec2((texture % PerRow) * TexelsPerTexture, texture / PerRow);
    bool present = texture < uTextureCount;
    vec4 corner = present ? texelFetch(uTable, base + ivec2(int(aCorner), 0), 0) : vec4(0.0);
    vec4 state = present ? texelFetch(uTable, base + ivec2(4, 0), 0) : vec4(0.0);
    bool blended = present && state.x == 2.0;
    bool inPass = uPass == 2 || (uPass == 1) == blended;
    // A face outside this pass collapses to one point outside the view: nothing is rasterised.
    gl_Position = inPass ? uViewProjection * vec4(aPosition, 1.0) : vec4(2.0, 2.0, 2.0, 1.0);
    vTexel = corner.xy;
    vTile = corner.z;
    vHighlight = state.y;
    vPresent = present ? 1.0 : 0.0;
    vFace = aFace;
}
