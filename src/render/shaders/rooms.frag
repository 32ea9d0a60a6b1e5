#version 330 core
in vec2 vTexel;
flat in float vTile;
flat in float vHighlight;
flat in float vPresent;
flat in uint vFace;

uniform sampler2DArray uTiles;
uniform int uPass;
uniform vec3 uTint;

out vec4 fragColor;

void main()
{
    // A face whose texture the list lacks is drawn flat grey, so it can still be seen and picked.
    vec4 texel = vPresent > 0.5 ? texture(uTiles, vec3(vTexel / 256.0, vTile)) : vec4(0.5, 0.5, 0.5, 1.0);
    if (texel.a < 0.5)
        discard;
    if (uPass == 2) {
        uint id = vFace + 1u;
        fragColor = vec4(float(id & 255u), float((id >> 8) & 255u), float((id >> 16) & 255u), float((id >> 24) & 255u)) / 255.0;
        return;
    }
    vec3 colour = vHighlight > 0.5 ? mix(texel.rgb, uTint, 0.6) : texel.rgb;
    fragColor = vec4(colour, 1.0);
}
