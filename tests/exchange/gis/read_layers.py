"""Layers of a file as GDAL reads them, as JSON.

read_layers.py FILE ...
"""
import json
import sys

from osgeo import ogr, osr

ogr.UseExceptions()
osr.UseExceptions()


def degrees_of(geometry, system):
    """Longitude and latitude as PROJ makes them of the file's own system."""
    if geometry is None or system is None or not (system.IsProjected() or system.IsGeographic()):
        return None
    world = osr.SpatialReference()
    world.ImportFromEPSG(4326)
    world.SetAxisMappingStrategy(osr.OAMS_TRADITIONAL_GIS_ORDER)
    system.SetAxisMappingStrategy(osr.OAMS_TRADITIONAL_GIS_ORDER)
    return osr.CoordinateTransformation(system, world).TransformPoint(geometry.GetX(), geometry.GetY())[:2]


def feature_of(feature, system):
    geometry = feature.GetGeometryRef()
    return {'place': geometry.ExportToIsoWkt() if geometry else None,
            'degrees': degrees_of(geometry, system),
            'values': feature.items()}


def layer_of(layer):
    system = layer.GetSpatialRef()
    fields = layer.GetLayerDefn()
    types = {fields.GetFieldDefn(i).GetName(): fields.GetFieldDefn(i).GetTypeName()
             for i in range(fields.GetFieldCount())}
    return {'types': types, 'extent': layer.GetExtent() if layer.GetFeatureCount() else None,
            'system': system.GetName() if system else None,
            'features': [feature_of(feature, system) for feature in layer]}


def file_of(path):
    source = ogr.Open(path)
    return {layer.GetName(): layer_of(layer) for layer in source}


json.dump({path: file_of(path) for path in sys.argv[1:]}, sys.stdout)
